// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/pane_obstacle.h"

#include <QAccessible>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "qt/browser/browser_module.h"

namespace kelvor::qt {

namespace {

/// Characters that a field of the login shows.
constexpr int fieldWidth = 30;

}  // namespace

PaneObstacle::PaneObstacle()
    : message_(new QLabel),
      login_(new QWidget),
      name_(new QLineEdit),
      password_(new QLineEdit),
      reload_(new QPushButton(QStringLiteral("&Reload"))),
      goOn_(new QPushButton(QStringLiteral("&Go on for this site, this run"))),
      logIn_(new QPushButton(QStringLiteral("&Log In"))),
      leave_(new QPushButton(QStringLiteral("Cancel"))) {
    message_->setTextFormat(Qt::PlainText);
    message_->setAlignment(Qt::AlignCenter);
    message_->setWordWrap(true);
    message_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    password_->setEchoMode(QLineEdit::Password);
    auto* fields = new QFormLayout(login_);
    fields->addRow(QStringLiteral("&Name:"), name_);
    fields->addRow(QStringLiteral("&Password:"), password_);
    login_->setFixedWidth(fieldWidth * fontMetrics().averageCharWidth() + fields->sizeHint().width() / 2);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    for (QPushButton* button : {reload_, goOn_, logIn_, leave_}) buttons->addWidget(button);
    buttons->addStretch();
    auto* lines = new QVBoxLayout(this);
    lines->addStretch();
    lines->addWidget(message_);
    lines->addWidget(login_, 0, Qt::AlignHCenter);
    lines->addLayout(buttons);
    lines->addStretch();

    connect(reload_, &QPushButton::clicked, this, &PaneObstacle::reload);
    connect(goOn_, &QPushButton::clicked, this, &PaneObstacle::goOn);
    connect(logIn_, &QPushButton::clicked, this, &PaneObstacle::logIn);
    connect(leave_, &QPushButton::clicked, this, &PaneObstacle::leave);
    for (QLineEdit* field : {name_, password_}) connect(field, &QLineEdit::returnPressed, this, &PaneObstacle::logIn);
    show(QString());
}

void PaneObstacle::show(const QString& message) {
    message_->setText(message);
    setAccessibleName(message);
    for (QPushButton* button : {reload_, goOn_}) button->hide();
    showLogin(false);
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void PaneObstacle::show(const Obstacle& obstacle) {
    show(obstacle.message);
    using enum Obstacle::Way;
    reload_->setVisible(obstacle.way != logIn);
    goOn_->setVisible(obstacle.way == goOn && !obstacle.certificateStays);
    showLogin(obstacle.way == logIn);
    setFocusProxy(obstacle.way == logIn ? static_cast<QWidget*>(name_) : reload_);
}

void PaneObstacle::showLogin(bool asked) {
    password_->clear();
    for (QWidget* part : std::initializer_list<QWidget*>{login_, logIn_, leave_}) part->setVisible(asked);
}

QString PaneObstacle::loginName() const {
    return name_->text();
}

QString PaneObstacle::password() const {
    return password_->text();
}

}  // namespace kelvor::qt
