#include "platform/qt/dialogs.h"

#include <QApplication>
#include <QColorDialog>
#include <QFileDialog>
#include <QFontMetrics>
#include <QGridLayout>
#include <QHeaderView>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QTreeView>
#include <algorithm>

#include "platform/paths.h"
#include "platform/qt/convert.h"
#include "platform/qt/file_filter.h"
#include "platform/qt/modal.h"

namespace kelvor::qt {

namespace {

/// In pixels; long paths in a question are broken at this width and not at the screen's.
constexpr int widestPrompt = 480;
/// In pixels; wide enough for the columns of the list.
constexpr QSize fileDialogSize(820, 520);
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

constexpr std::pair<Answer, QMessageBox::StandardButton> answers[] = {
    {Answer::ok, QMessageBox::Ok},
    {Answer::yes, QMessageBox::Yes},
    {Answer::no, QMessageBox::No},
    {Answer::cancel, QMessageBox::Cancel},
};

QMessageBox::StandardButton buttonOf(Answer answer) {
    return std::find_if(std::begin(answers), std::end(answers), [&](const auto& row) { return row.first == answer; })
        ->second;
}

/// The library's own dialogs and not the desktop's: only these ignore case in the patterns everywhere.
void prepare(QFileDialog& dialog, const std::string& title, const std::string& directory) {
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    if (!title.empty()) dialog.setWindowTitle(windowTitle(title));
    dialog.resize(fileDialogSize);
    const QString start = toQt(directory);
    dialog.setDirectory(QFileInfo(start).isDir() ? start : QDir::homePath());
    if (auto* list = dialog.findChild<QTreeView*>(QStringLiteral("treeView"))) {
        list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
        list->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    }
}

/// The files named in the dialog's field, each in double quotes. The dialog itself takes those that its list shows for
/// all, and loses names from other directories. None when some are not there, or the field names one without quotes.
QStringList quotedFiles(const QFileDialog& dialog) {
    const auto* field = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    const QStringList parts = field ? field->text().split(QLatin1Char('"')) : QStringList();
    QStringList files;
    for (qsizetype name = 1; name < parts.size(); name += 2) files << dialog.directory().absoluteFilePath(parts[name]);
    const bool allThere =
        std::all_of(files.begin(), files.end(), [](const QString& file) { return QFile::exists(file); });
    return allThere ? files : QStringList();
}

/// The chosen paths, native; none when the dialog was cancelled.
std::vector<std::string> chosen(QFileDialog& dialog) {
    std::vector<std::string> paths;
    if (showUntilAnswered(dialog) != QDialog::Accepted) return paths;
    QStringList files = quotedFiles(dialog);
    if (files.isEmpty()) files = dialog.selectedFiles();
    for (const QString& path : files) paths.push_back(fromQt(path));
    return paths;
}

void prepareForFiles(QFileDialog& dialog, const FileRequest& request) {
    prepare(dialog, request.title, request.directory);
    const QStringList filters = nameFilters(request.filter);
    // The names tell their patterns already.
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setNameFilters(filters);
    const auto row = std::clamp<qsizetype>(request.filterIndex, 1, filters.size()) - 1;
    dialog.selectNameFilter(filters[row]);
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
    box.setTextFormat(Qt::PlainText);
    box.setText(plainLines(message.text));
    box.setStandardButtons(buttonsOf(message.buttons));
    box.setEscapeButton(escapeOf(message.buttons));
    const QMessageBox::StandardButton standard = buttonOf(message.standard);
    box.setDefaultButton(box.standardButtons().testFlag(standard) ? standard : QMessageBox::Yes);
    makeRoomForTitle(box);
    const int pressed = showUntilAnswered(box);
    const auto row = std::find_if(std::begin(answers), std::end(answers),
                                  [&](const auto& answer) { return answer.second == pressed; });
    return row == std::end(answers) ? Answer::cancel : row->first;
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
    QFileDialog dialog;
    prepareForFiles(dialog, request);
    dialog.setFileMode(request.multiple ? QFileDialog::ExistingFiles : QFileDialog::ExistingFile);
    return chosen(dialog);
}

std::optional<std::string> QtDialogs::saveFile(const FileRequest& request) {
    QFileDialog dialog;
    prepareForFiles(dialog, request);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setOption(QFileDialog::DontConfirmOverwrite, !request.overwritePrompt);
    if (!request.fileName.empty()) dialog.selectFile(toQt(fileNamePart(request.fileName)));
    const auto paths = chosen(dialog);
    if (paths.empty()) return std::nullopt;
    return paths.front();
}

std::optional<int> QtDialogs::color() {
    QColorDialog dialog;
    dialog.setOption(QColorDialog::DontUseNativeDialog);
    dialog.setWindowTitle(QStringLiteral("Color"));
    if (showUntilAnswered(dialog) != QDialog::Accepted) return std::nullopt;
    return fromQt(dialog.currentColor());
}

std::optional<std::string> QtDialogs::folder(const std::string& title, const std::string& start) {
    QFileDialog dialog;
    prepare(dialog, title, start);
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    const auto paths = chosen(dialog);
    if (paths.empty()) return std::nullopt;
    return paths.front();
}

}  // namespace kelvor::qt
