// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAccessibleWidget>

namespace kelvor::qt {

class ScintillaWidget;

/// An edit control as a screen reader reads it. Offsets count characters.
class TextAccessible : public QAccessibleWidget,
                       public QAccessibleTextInterface,
                       public QAccessibleEditableTextInterface {
public:
    explicit TextAccessible(ScintillaWidget& widget);

    /// From then on the edit controls of the program are read so.
    static void install();

    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    void selection(int index, int* start, int* end) const override;
    int selectionCount() const override;
    void addSelection(int start, int end) override;
    void removeSelection(int index) override;
    void setSelection(int index, int start, int end) override;
    int cursorPosition() const override;
    void setCursorPosition(int offset) override;
    QString text(int start, int end) const override;
    using QAccessibleWidget::text;
    QString textBeforeOffset(int offset, QAccessible::TextBoundaryType boundary, int* start, int* end) const override;
    QString textAfterOffset(int offset, QAccessible::TextBoundaryType boundary, int* start, int* end) const override;
    QString textAtOffset(int offset, QAccessible::TextBoundaryType boundary, int* start, int* end) const override;
    int characterCount() const override;
    QRect characterRect(int offset) const override;
    int offsetAtPoint(const QPoint& point) const override;
    void scrollToSubstring(int start, int end) override;
    QString attributes(int offset, int* start, int* end) const override;

    void deleteText(int start, int end) override;
    void insertText(int offset, const QString& text) override;
    void replaceText(int start, int end, const QString& text) override;

private:
    /// Bytes of the text.
    struct Range {
        long start = 0;
        long end = 0;
    };
    long send(unsigned int message, long first = 0, long second = 0) const;
    long length() const;
    long positionOf(int offset) const;
    void select(int start, int end);
    Range unitAt(long position, QAccessible::TextBoundaryType boundary) const;
    QString told(Range range, int* start, int* end) const;

    ScintillaWidget& widget_;
};

}  // namespace kelvor::qt
