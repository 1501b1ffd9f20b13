#pragma once
// Draws the lines of a list with a dot of colour before the text and a value at the right end; the
// text itself stays the item's.

#include "fundfile/rules/curvecolour.h"

#include <QListWidgetItem>
#include <QString>
#include <QStyleOptionViewItem>
#include <QStyledItemDelegate>
#include <QVariant>

#include <functional>
#include <optional>

class QAbstractItemView;
class QHelpEvent;
class QListWidget;
class QModelIndex;
class QPainter;

struct LineLook {
    std::optional<Colour> dot;
    QString value;        ///< at the right end
    bool chosen = false;  ///< one of several: a tick stands over the dot
};

/// The blank in front of a one-digit number is drawn as wide as a digit, so that the numbers line
/// up. The line that the keys stand on without choosing it has a frame.
class ListLines final : public QStyledItemDelegate {
    Q_OBJECT

  public:
    explicit ListLines(QListWidget* list);

    /// Asked for every line that is drawn.
    void SetLooks(std::function<LineLook(int row)> lookOf) { lookOf_ = std::move(lookOf); }
    /// What is to be seen of a line: its text, its value and its tick.
    QString SpokenText(const QModelIndex& index) const;
    /// Where a line's dot stands.
    static QRect DotPlace(const QRect& line);

    void paint(QPainter* painter, const QStyleOptionViewItem& whole,
               const QModelIndex& index) const override;
    /// A line that is cut stands whole in its tooltip.
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

  private:
    LineLook LookOf(const QModelIndex& index) const;
    QStyleOptionViewItem InView(QStyleOptionViewItem option) const;
    static QRect TextPlace(const QStyleOptionViewItem& line, const LineLook& look);
    static void PaintLook(QPainter& painter, const QStyleOptionViewItem& line,
                          const LineLook& look);

    const QListWidget* list_;
    std::function<LineLook(int row)> lookOf_;
};

/// A line of such a list: a screen reader says all that is to be seen of it.
class SeenLine final : public QListWidgetItem {
  public:
    explicit SeenLine(const QString& text) : QListWidgetItem(text) {}
    QVariant data(int role) const override;
};
