// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/file_dialog.h"

#include <QApplication>
#include <QCheckBox>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScopedValueRollback>
#include <algorithm>
#include <limits>
#include <utility>

#include "base/error.h"
#include "files/chosen_paths.h"
#include "files/path_look.h"
#include "files/paths.h"
#include "files/places.h"
#include "files/typed_paths.h"
#include "platform/platform.h"
#include "qt/convert.h"
#include "text/shown_name.h"

namespace kelvor::qt {

namespace {

/// In pixels; wide enough for the columns of the list.
constexpr QSize dialogSize(820, 520);
/// So many names are written into the field; of more the field tells the number.
constexpr std::size_t mostNamesShown = 50;

struct Words {
    const char* title;
    const char* name;
    const char* emptyName;
    const char* button;
    const char* hidden;
};

Words wordsOf(FilePurpose purpose) {
    switch (purpose) {
        case FilePurpose::save:
            return {"Save As", "File &name:", "", "&Save", "Show &hidden files"};
        case FilePurpose::folder:
            return {"Choose a Folder", "Folder &name:", "The folder shown", "&Choose", "Show &hidden folders"};
        case FilePurpose::open:
            break;
    }
    return {"Open", "File &name:", "", "&Open", "Show &hidden files"};
}

}  // namespace

FileDialog::FileDialog(FilePurpose purpose, const FileRequest& request)
    : purpose_(purpose),
      request_(request),
      title_(request.title.empty() ? wordsOf(purpose).title : request.title),
      filters_(filterRows(request.filter)),
      completer_(purpose == FilePurpose::folder, this),
      view_(*new FolderView(request.multiple, this)),
      places_(*new QComboBox(this)),
      field_(*new QLineEdit(this)),
      types_(*new QComboBox(this)),
      hidden_(*new QCheckBox(QString::fromLatin1(wordsOf(purpose).hidden), this)) {
    setWindowTitle(qt::windowTitle(title_));
    field_.setObjectName(QStringLiteral("fileNameEdit"));
    field_.setMaxLength(std::numeric_limits<int>::max());
    field_.setCompleter(&completer_);
    for (const FilterRow& row : filters_) types_.addItem(toQt(row.name));
    types_.setCurrentIndex(std::clamp(request.filterIndex, 1, types_.count()) - 1);
    places_.setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    places_.setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    build();
    connectParts();
    showFilter();
    showInEmptyField({});
    startIn(request.directory);
    offerName(fileNamePart(request.fileName));
    field_.selectAll();
    field_.setFocus();
}

void FileDialog::build() {
    const auto label = [this](const char* text, QWidget& buddy) {
        auto* made = new QLabel(QString::fromLatin1(text), this);
        made->setBuddy(&buddy);
        buddy.setAccessibleName(made->text().remove(QLatin1Char('&')));
        return made;
    };
    auto* top = new QHBoxLayout;
    top->addWidget(label("Look &in:", places_));
    top->addWidget(&places_);
    top->addWidget(back_ = placeButton(QStyle::SP_ArrowBack, "Back", "Alt+Left", &FileDialog::goBack));
    top->addWidget(placeButton(QStyle::SP_FileDialogToParent, "Up", "Alt+Up", &FileDialog::goUp));
    top->addWidget(placeButton(QStyle::SP_DirHomeIcon, "Home", "Alt+Home", &FileDialog::goHome));
    top->addWidget(placeButton(QStyle::SP_FileDialogNewFolder, "New Folder", "Ctrl+N", &FileDialog::makeNewFolder));

    auto* take = new QPushButton(QString::fromLatin1(wordsOf(purpose_).button), this);
    take->setDefault(true);
    connect(take, &QPushButton::clicked, this, &FileDialog::accept);
    auto* cancel = new QPushButton(QStringLiteral("Cancel"), this);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);

    auto* layout = new QGridLayout(this);
    constexpr int columns = 3;
    layout->addLayout(top, 0, 0, 1, columns);
    layout->addWidget(&view_, 1, 0, 1, columns);
    layout->addWidget(label(wordsOf(purpose_).name, field_), 2, 0);
    layout->addWidget(&field_, 2, 1);
    layout->addWidget(take, 2, 2);
    QLabel* types = label("Files of &type:", types_);
    layout->addWidget(types, 3, 0);
    layout->addWidget(&types_, 3, 1);
    layout->addWidget(cancel, 3, 2);
    layout->addWidget(&hidden_, 4, 1);
    types->setVisible(purpose_ != FilePurpose::folder);
    types_.setVisible(purpose_ != FilePurpose::folder);
    resize(dialogSize);
}

QToolButton* FileDialog::placeButton(QStyle::StandardPixmap picture, const char* caption, const char* keys,
                                     void (FileDialog::*act)()) {
    auto* button = new QToolButton(this);
    const QKeySequence shortcut(QString::fromLatin1(keys));
    button->setIcon(style()->standardIcon(picture));
    button->setAutoRaise(true);
    button->setShortcut(shortcut);
    button->setAccessibleName(QString::fromLatin1(caption));
    button->setToolTip(
        QStringLiteral("%1 (%2)").arg(button->accessibleName(), shortcut.toString(QKeySequence::NativeText)));
    connect(button, &QToolButton::clicked, this, act);
    return button;
}

void FileDialog::connectParts() {
    connect(&view_, &FolderView::marksChanged, this, &FileDialog::showMarks);
    connect(&view_, &FolderView::marksTaken, this, &FileDialog::accept);
    connect(&view_, &FolderView::folderOpened, this, [this](const std::string& path) { enter(path); });
    connect(&places_, &QComboBox::activated, this,
            [this](int row) { enter(places_.itemData(row).toByteArray().toStdString()); });
    connect(&types_, &QComboBox::currentIndexChanged, this, &FileDialog::showFilter);
    connect(&hidden_, &QCheckBox::toggled, this, &FileDialog::showFilter);
    connect(&field_, &QLineEdit::textEdited, this, &FileDialog::noteTyping);
    // Behind the list of offers, which writes the chosen one into the field after this key.
    connect(&field_, &QLineEdit::returnPressed, this, &FileDialog::acceptTyped, Qt::QueuedConnection);
}

void FileDialog::startIn(const std::string& directory) {
    for (const std::string& start : {directory, directoryVariable("HOME"), std::string("/")}) {
        try {
            if (!start.starts_with('/')) continue;
            view_.enter(withoutSeparator(start));
            return showPlaces();
        } catch (const Error&) {
            continue;
        }
    }
}

bool FileDialog::enter(const std::string& folder) {
    const std::string left = view_.folder();
    try {
        view_.enter(withoutSeparator(folder));
    } catch (const Error& error) {
        refuse(error.description());
        return false;
    }
    if (left != view_.folder()) past_.push_back(left);
    showPlaces();
    return true;
}

void FileDialog::goBack() {
    if (past_.empty()) return;
    const std::string folder = past_.back();
    const auto before = std::vector(past_.begin(), past_.end() - 1);
    if (!enter(folder)) return;
    past_ = before;
    showPlaces();
}

void FileDialog::goUp() {
    enter(directoryPart(view_.folder()));
}

void FileDialog::goHome() {
    enter(directoryVariable("HOME"));
}

void FileDialog::makeNewFolder() {
    const std::string name =
        platform().dialogs.input({.prompt = "Name of the new folder:", .title = "New Folder", .standard = ""});
    const std::string path = typedPath(name, view_.folder());
    if (path.empty()) return;
    try {
        makeFolder(path);
    } catch (const Error& error) {
        return refuse(error.description());
    }
    enter(path);
}

void FileDialog::showPlaces() {
    places_.clear();
    for (const std::string& place : placesFrom(view_.folder()))
        places_.addItem(rowText(place), QByteArray::fromStdString(place));
    places_.setToolTip(toolTipText(shownName(view_.folder())));
    back_->setEnabled(!past_.empty());
}

void FileDialog::showFilter() {
    view_.setFilter({.files = filters_[static_cast<std::size_t>(types_.currentIndex())],
                     .foldersOnly = purpose_ == FilePurpose::folder,
                     .hidden = hidden_.isChecked()});
}

void FileDialog::showMarks() {
    if (typing_) return;
    std::vector<std::string> names;
    for (const std::string& path : markedPaths()) names.push_back(fileNamePart(path));
    if (purpose_ == FilePurpose::save) {
        // A name that was typed outlives the way through the folders.
        if (!names.empty()) offerName(names.front());
        return;
    }
    const bool areMany = names.size() > mostNamesShown;
    field_.setText(areMany ? QString() : toQt(typedText(names)));
    showInEmptyField(areMany ? QStringLiteral("%L1 files marked").arg(names.size()) : QString());
}

void FileDialog::offerName(const std::string& name) {
    offered_ = name;
    field_.setText(toQt(name));
}

void FileDialog::showInEmptyField(const QString& count) {
    field_.setPlaceholderText(count.isEmpty() ? QString::fromLatin1(wordsOf(purpose_).emptyName) : count);
    field_.setAccessibleDescription(field_.placeholderText());
}

void FileDialog::noteTyping(const QString& text) {
    const QScopedValueRollback typing(typing_, true);
    view_.clearSelection();
    showInEmptyField({});
    completer_.prepare(text, view_.folder());
}

void FileDialog::keyPressEvent(QKeyEvent* event) {
    // Return is the list's, the field's or a button's own.
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) QDialog::keyPressEvent(event);
}

std::vector<std::string> FileDialog::markedPaths() const {
    std::vector<std::string> paths;
    for (const FolderEntry& entry : view_.marked())
        if (entry.isFolder == (purpose_ == FilePurpose::folder)) paths.push_back(view_.pathOf(entry));
    return paths;
}

std::string FileDialog::typed() const {
    return fromQt(field_.text());
}

std::string FileDialog::nameToSave() const {
    const bool isOffered = !offered_.empty() && field_.text() == toQt(offered_);
    return isOffered ? joinPath(view_.folder(), offered_) : typedPath(typed(), view_.folder());
}

void FileDialog::acceptTyped() {
    // A second Return may be on its way already when the first one has closed this dialog or put a question.
    if (QApplication::activeModalWidget() == this) accept();
}

void FileDialog::accept() {
    switch (purpose_) {
        case FilePurpose::open:
            return acceptFiles();
        case FilePurpose::save:
            return acceptName();
        case FilePurpose::folder:
            return acceptFolder();
    }
}

void FileDialog::acceptFiles() {
    auto paths = markedPaths();
    if (paths.empty()) paths = typedPaths(typed(), view_.folder());
    const auto entries = view_.marked();
    if (paths.empty() && entries.size() == 1) paths = {view_.pathOf(entries.front())};
    if (paths.empty()) return;
    if (paths.size() == 1 && lookAt(paths.front()).isFolder()) {
        if (enter(paths.front())) field_.clear();
        return;
    }
    std::string obstacles = obstaclesTo(paths);
    if (paths.size() > 1 && !request_.multiple) obstacles = "Only one file can be chosen here.";
    if (obstacles.empty()) return finish(std::move(paths));
    refuse(obstacles);
}

void FileDialog::acceptName() {
    const auto marked = markedPaths();
    const std::string path = marked.empty() ? nameToSave() : marked.front();
    if (path.empty()) return;
    if (lookAt(path).isFolder()) {
        if (enter(path)) field_.clear();
        return;
    }
    if (const auto obstacle = obstacleToSaving(path)) return refuse(*obstacle);
    const bool isFree = obstacleToFile(path).has_value();
    if (isFree || !request_.overwritePrompt || mayReplace(path)) finish({path});
}

bool FileDialog::mayReplace(const std::string& path) const {
    return platform().dialogs.message({.text = fileNamePart(path) + " already exists.\r\nDo you want to replace it?",
                                       .title = title_,
                                       .icon = MessageIcon::question,
                                       .buttons = MessageButtons::yesNo,
                                       .standard = Answer::no}) == Answer::yes;
}

void FileDialog::acceptFolder() {
    auto paths = markedPaths();
    if (paths.empty()) paths = typedPaths(typed(), view_.folder());
    if (paths.empty()) paths = {view_.folder()};
    if (paths.size() > 1) return refuse("Only one folder can be chosen here.");
    if (const auto obstacle = obstacleToFolder(paths.front())) return refuse(*obstacle);
    finish({withoutSeparator(paths.front())});
}

void FileDialog::finish(std::vector<std::string> paths) {
    chosen_ = std::move(paths);
    QDialog::accept();
}

void FileDialog::refuse(const std::string& text) {
    beepAndShow({.text = text, .title = title_, .icon = MessageIcon::exclamation});
}

}  // namespace kelvor::qt
