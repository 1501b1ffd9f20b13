#pragma once
// A legend: entries with a dot of colour, a number, a name and a value at the end, in as many
// columns as fit. The pointer or the keys bring one forward; a click, Enter or Space chooses it.

#include "fundfile/rules/curvecolour.h"

#include <QListWidget>
#include <QString>

#include <cstdint>
#include <vector>

class QEvent;
class QFocusEvent;
class QKeyEvent;
class QResizeEvent;

struct LegendEntry {
    std::int32_t id = 0;
    Colour colour;
    QString number, name, value;
    bool operator==(const LegendEntry&) const = default;
};

class LegendView final : public QListWidget {
    Q_OBJECT

  public:
    explicit LegendView(QWidget* parent = nullptr);

    void SetEntries(std::vector<LegendEntry> entries);
    const std::vector<LegendEntry>& Entries() const { return entries_; }

  signals:
    void Lit(std::int32_t id);  ///< the pointer or the mark of the keys came to the entry
    void Unlit();               ///< and left all of them
    void Chosen(std::int32_t id);

  protected:
    bool viewportEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    void FitColumns();
    void LightCurrent();
    void MoveBy(int entries);
    std::int32_t IdAt(int row) const { return entries_[static_cast<std::size_t>(row)].id; }

    std::vector<LegendEntry> entries_;
};
