#pragma once
// The far left of a grid: what each row is, as a sign. Knows no rows; who makes it says.

#include <QHeaderView>

#include <functional>

/// The current row has an arrow, a typed one a pencil, the empty last one a star.
enum class RowSign { None, Current, Typed, New };
using SignOfRow = std::function<RowSign(int row)>;

class GridRowHeader : public QHeaderView {
  public:
    GridRowHeader(SignOfRow signOf, QWidget* parent);

  protected:
    void paintSection(QPainter* painter, const QRect& area, int row) const override;

  private:
    SignOfRow signOf_;
};
