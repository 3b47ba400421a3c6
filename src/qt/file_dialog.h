// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QToolButton>
#include <string>
#include <vector>

#include "files/filter_rows.h"
#include "platform/dialogs.h"
#include "qt/folder_view.h"
#include "qt/path_completer.h"

class QCheckBox;

namespace kelvor::qt {

enum class FilePurpose { open, save, folder };

/// Lets the user choose files to open, a name to save under, or a folder. What is marked in the list is taken from the
/// list, by the bytes of its names; the field counts only for what is typed into it.
class FileDialog : public QDialog {
public:
    FileDialog(FilePurpose purpose, const FileRequest& request);

    /// The chosen paths in the order of the list or as they were typed; none before the dialog is accepted.
    const std::vector<std::string>& chosen() const { return chosen_; }

    /// Enters the folder that is named, or takes what is named when it can be had; otherwise says why not.
    void accept() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void build();
    QToolButton* placeButton(QStyle::StandardPixmap picture, const char* caption, const char* keys,
                             void (FileDialog::*act)());
    void connectParts();
    void startIn(const std::string& directory);

    bool enter(const std::string& folder);
    void goBack();
    void goUp();
    void goHome();
    void makeNewFolder();
    void showPlaces();
    void showFilter();
    void showMarks();
    void offerName(const std::string& name);
    void showInEmptyField(const QString& count);
    void noteTyping(const QString& text);

    void acceptTyped();
    void acceptFiles();
    void acceptName();
    void acceptFolder();
    void finish(std::vector<std::string> paths);
    /// What is marked and of use for the purpose; the folders among it are of none for files.
    std::vector<std::string> markedPaths() const;
    std::string typed() const;
    /// The path of the name that is typed, or was offered and stays: that one by its bytes, which the field cannot
    /// show.
    std::string nameToSave() const;
    bool mayReplace(const std::string& path) const;
    void refuse(const std::string& text);

    const FilePurpose purpose_;
    const FileRequest request_;
    const std::string title_;
    const std::vector<FilterRow> filters_;
    std::vector<std::string> past_;  ///< the folders shown before this one
    std::vector<std::string> chosen_;
    std::string offered_;  ///< the bytes of the name that was last written into the field for a save
    bool typing_ = false;

    PathCompleter completer_;
    FolderView& view_;
    QComboBox& places_;
    QLineEdit& field_;
    QComboBox& types_;
    QCheckBox& hidden_;
    QToolButton* back_ = nullptr;
};

}  // namespace kelvor::qt
