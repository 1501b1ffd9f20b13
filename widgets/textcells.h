#pragma once
// How a table draws the texts of its cells.

#include <QStyledItemDelegate>

/// Draws a text in one stroke, where the style lays it out as if it had paragraphs: a table of all
/// holdings is there in a third of the time. What is behind the text is the style's.
class TextCells final : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
};
