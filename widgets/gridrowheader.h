#pragma once
// The far left of a grid: what each row is, as a sign. Knows no rows; who makes it says.

#include <QHeaderView>

#include <functional>

/// The current row has an arrow, a typed one a pencil, the empty last one a star.
enum class RowSign { None, Current, Typed, New };

class GridRowHeader : public QHeaderView {
  public:
    GridRowHeader(std::function<RowSign(int row)> signOf, QWidget* parent);

  protected:
    void paintSection(QPainter* painter, const QRect& area, int row) const override;

  private:
    std::function<RowSign(int row)> signOf_;
};
