#pragma once
// A text box that shows a column of a data source's current row and stores what is typed there.

#include "widgets/entryfield.h"

#include <QPointer>

#include <functional>
#include <optional>
#include <string>

class QFocusEvent;
class QKeyEvent;
class QShowEvent;
class DataSource;

/// Stores when it is left or when told to. Up and Down go to the neighbouring fields. An empty set
/// or no current row shows nothing and takes no typing. What cannot be stored stays typed; the data
/// source reports the failure.
class BoundField : public EntryField {
    Q_OBJECT

  public:
    explicit BoundField(QWidget* parent = nullptr);

    /// Null unbinds.
    void Bind(DataSource* source, std::string column);
    /// From now on only Store stores; leaving the field keeps what is typed.
    void StoreOnlyWhenTold();
    /// From now on it takes no typing; what it shows can be copied.
    void ShowOnly();
    /// Says that the text is longer than its column, which holds `maxLength` characters. The field
    /// keeps the text and has the focus again.
    void SetTooLong(std::function<void(int maxLength)> tell);
    /// Whether there is something typed that is not stored yet.
    bool Changed() const;
    bool Store();   ///< true when nothing is left to store
    void Reload();  ///< shows what is stored; forgets what was typed

  signals:
    void Stored();  ///< what was typed is in the file

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    bool HasRow() const;
    std::optional<int> ExceededLength() const;
    void StoreOnLeaving();
    void Follow();
    void MoveFocus(bool forward, QKeyEvent* event);

    QPointer<DataSource> source_;
    std::string column_;
    QString shown_;
    int row_ = -1;         ///< the row shown; -1: none
    bool behind_ = false;  ///< its row changed while nobody saw it
    bool storing_ = false;
    bool onlyWhenTold_ = false;
    bool showsOnly_ = false;
    std::function<void(int maxLength)> tooLong_;
    bool refusalWaits_ = false;  ///< left with a text that is too long: told after the event
};
