// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

class QFormLayout;
class QLabel;
class QLineEdit;
class QPushButton;

namespace kelvor::qt {

struct Obstacle;

/// What stands in a page's place: why the page is not there, and the way on.
class PaneObstacle : public QWidget {
    Q_OBJECT
public:
    PaneObstacle();

    /// Without a way on.
    void show(const QString& message);
    void show(const Obstacle& obstacle);

    QString loginName() const;
    QString password() const;

signals:
    void reload();
    void goOn();
    void logIn();
    /// Shows the page as it is, without a login.
    void leave();

private:
    void showLogin(bool asked);

    QLabel* message_;
    QWidget* login_;
    QLineEdit* name_;
    QLineEdit* password_;
    QPushButton* reload_;
    QPushButton* goOn_;
    QPushButton* logIn_;
    QPushButton* leave_;
};

}  // namespace kelvor::qt
