#pragma once
// The captions over the columns of a table: one that does not fit is cut with "..."; the model has
// the whole one as its tooltip.

#include <QHeaderView>

class QStyleOptionHeader;

class CaptionHeader final : public QHeaderView {
    Q_OBJECT

  public:
    explicit CaptionHeader(QWidget* parent);

  protected:
    void initStyleOptionForIndex(QStyleOptionHeader* option, int column) const override;
};
