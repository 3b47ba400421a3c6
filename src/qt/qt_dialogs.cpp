// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/qt_dialogs.h"

#include <QApplication>
#include <QColorDialog>
#include <QFontMetrics>
#include <QGridLayout>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <algorithm>

#include "qt/convert.h"
#include "qt/file_dialog.h"
#include "qt/message_text.h"
#include "qt/modal.h"

namespace kelvor::qt {

namespace {

/// In pixels; long paths in a question are broken at this width and not at the screen's.
constexpr int widestPrompt = 480;
/// In pixels; what a title bar needs beside its text for icon and buttons.
constexpr int titleBarMargin = 130;

QMessageBox::Icon iconOf(MessageIcon icon) {
    switch (icon) {
        case MessageIcon::critical:
            return QMessageBox::Critical;
        case MessageIcon::question:
            return QMessageBox::Question;
        case MessageIcon::exclamation:
            return QMessageBox::Warning;
        case MessageIcon::information:
            return QMessageBox::Information;
        case MessageIcon::none:
            break;
    }
    return QMessageBox::NoIcon;
}

QMessageBox::StandardButtons buttonsOf(MessageButtons buttons) {
    switch (buttons) {
        case MessageButtons::yesNo:
            return QMessageBox::Yes | QMessageBox::No;
        case MessageButtons::yesNoCancel:
            return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
        case MessageButtons::ok:
            break;
    }
    return QMessageBox::Ok;
}

/// The button that Escape and the close box press.
QMessageBox::StandardButton escapeOf(MessageButtons buttons) {
    switch (buttons) {
        case MessageButtons::yesNo:
            return QMessageBox::No;
        case MessageButtons::yesNoCancel:
            return QMessageBox::Cancel;
        case MessageButtons::ok:
            break;
    }
    return QMessageBox::Ok;
}

struct AnswerRow {
    Answer answer;
    QMessageBox::StandardButton button;
};

constexpr AnswerRow answers[] = {
    {Answer::ok, QMessageBox::Ok},
    {Answer::yes, QMessageBox::Yes},
    {Answer::no, QMessageBox::No},
    {Answer::cancel, QMessageBox::Cancel},
};

QMessageBox::StandardButton buttonOf(Answer answer) {
    return std::find_if(std::begin(answers), std::end(answers), [&](const auto& row) { return row.answer == answer; })
        ->button;
}

/// The paths that the user chooses; none when the dialog is cancelled.
std::vector<std::string> chosen(FilePurpose purpose, const FileRequest& request) {
    FileDialog dialog(purpose, request);
    return showUntilAnswered(dialog) == QDialog::Accepted ? dialog.chosen() : std::vector<std::string>();
}

std::optional<std::string> firstOf(const std::vector<std::string>& paths) {
    return paths.empty() ? std::nullopt : std::optional(paths.front());
}

/// Makes a box at least as wide as its title, which the window manager would cut otherwise.
void makeRoomForTitle(QMessageBox& box) {
    auto* grid = qobject_cast<QGridLayout*>(box.layout());
    if (!grid) return;
    const int width = QFontMetrics(QApplication::font()).horizontalAdvance(box.windowTitle()) + titleBarMargin;
    grid->addItem(new QSpacerItem(width, 0), grid->rowCount(), 0, 1, grid->columnCount());
}

}  // namespace

Answer QtDialogs::message(const Message& message) {
    QMessageBox box;
    box.setIcon(iconOf(message.icon));
    box.setWindowTitle(windowTitle(message.title));
    showText(box, message);
    box.setStandardButtons(buttonsOf(message.buttons));
    box.setEscapeButton(escapeOf(message.buttons));
    const QMessageBox::StandardButton standard = buttonOf(message.standard);
    box.setDefaultButton(box.standardButtons().testFlag(standard) ? standard : QMessageBox::Yes);
    makeRoomForTitle(box);
    const int pressed = showUntilAnswered(box);
    const auto row =
        std::find_if(std::begin(answers), std::end(answers), [&](const auto& each) { return each.button == pressed; });
    return row == std::end(answers) ? Answer::cancel : row->answer;
}

std::string QtDialogs::input(const InputRequest& request) {
    QInputDialog dialog;
    dialog.setWindowTitle(windowTitle(request.title));
    dialog.setLabelText(plainLines(request.prompt));
    dialog.setTextValue(toQt(request.standard));
    for (QLabel* label : dialog.findChildren<QLabel*>()) {
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
        label->setMinimumWidth(std::min(label->sizeHint().width(), widestPrompt));
    }
    dialog.resize(widestPrompt, dialog.sizeHint().height());
    return showUntilAnswered(dialog) == QDialog::Accepted ? fromQt(dialog.textValue()) : std::string();
}

std::vector<std::string> QtDialogs::openFiles(const FileRequest& request) {
    return chosen(FilePurpose::open, request);
}

std::optional<std::string> QtDialogs::saveFile(const FileRequest& request) {
    return firstOf(chosen(FilePurpose::save, request));
}

std::optional<std::string> QtDialogs::folder(const std::string& title, const std::string& start) {
    return firstOf(chosen(FilePurpose::folder, {.title = title, .directory = start}));
}

std::optional<int> QtDialogs::color(const std::string& title, int start) {
    QColorDialog dialog(colorToQt(start));
    dialog.setOption(QColorDialog::DontUseNativeDialog);
    dialog.setWindowTitle(windowTitle(title.empty() ? "Color" : title));
    if (showUntilAnswered(dialog) != QDialog::Accepted) return std::nullopt;
    return fromQt(dialog.currentColor());
}

}  // namespace kelvor::qt
