#pragma once

#include <QAbstractListModel>
#include <functional>
#include <string>
#include <vector>

#include "platform/list_rows.h"

class QAbstractItemView;

namespace kelvor::qt {

class FormLink;

/// The rows of a list control for a widget to show, read where they are: a list of any length is
/// filled row by row without being copied at each row. To be told each change, behind it.
class StringRows : public QAbstractListModel {
public:
    /// Takes a row's new text from the user; false refuses it.
    using Editor = std::function<bool(int row, const std::string& text)>;

    /// `rows` must live as long as this. Without an editor the rows cannot be edited.
    StringRows(const std::vector<std::string>& rows, QObject* parent, Editor editor = {});

    void renew();
    void note(const RowChange& change);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

private:
    const std::vector<std::string>& rows_;
    int count_;
    Editor editor_;
};

/// Shows `rows`, which end with the link, in `view`, which may outlive them.
void showRows(QAbstractItemView& view, QAbstractItemModel& rows, FormLink& link);

/// Lets a list have the keys for its own selection and clipboard, which the Edit menu would take for the text
/// otherwise.
void keepListKeys(QWidget& list);

}  // namespace kelvor::qt
