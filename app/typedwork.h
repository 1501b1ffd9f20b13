#pragma once
// What is half typed when its place is to be left: rows in the grids, account fields, a new shares
// notice. A price that is not confirmed does not count.

#include "app/controller.h"
#include "app/rules/unstored.h"

#include <functional>
#include <string>
#include <vector>

class QWidget;

class TypedWork : Controller {
  public:
    explicit TypedWork(frmPPM& ppm);

    /// Stores what can be stored. Of the rest, all in one question, the user says whether to go on
    /// without it; false: he does not, and the cursor stands there.
    bool MayLeaveFile();
    /// The same question about a notice alone, which nothing but its own button stores.
    bool MayLeaveNotice();

  private:
    struct Piece {
        QWidget* place;
        std::function<std::string()> name;  ///< as it is after storing failed
        std::function<bool()> store;        ///< true when nothing is left to store
    };
    std::vector<Piece> Pieces();
    std::string HoldingName() const;
    std::string PointName() const;
    std::string NoticeName() const;
    bool NoticeTyped() const;
    bool Ask(const std::vector<Unstored>& unstored);
    void GoTo(QWidget& place);
    void GiveUp();
};
