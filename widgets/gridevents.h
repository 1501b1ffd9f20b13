#pragma once
// What a grid tells and asks while its cells and rows are typed, stored and deleted.

#include <functional>
#include <string>

/// What a cell is about to become.
struct CellChange {
    int column = 0;
    std::string oldText = {};
    std::string text = {};  ///< may be rewritten
    bool cancel = false;    ///< true: the cell keeps its old text
    bool stay = false;      ///< true: the cell is not left; the user has been told why
};

/// Called in the order in which they stand here. An empty one is not called;
/// a `bool` answer of false forbids.
struct GridEvents {
    std::function<bool(int column)> beforeCellEdit;
    std::function<void(CellChange&)> beforeCellStore;
    std::function<void(int column)> afterCellStore;
    std::function<bool()> beforeRowLeave;  ///< another row is wanted, whether or not one is typed
    std::function<bool()> rowIsComplete;   ///< whether it would be stored; tells the user nothing
    std::function<bool()>
        beforeRowStore;  ///< the row is still typed: ask TypedText, complete with TypeText
    std::function<void(bool isNew)> afterRowStore;
    std::function<bool()> beforeRowDelete;  ///< the row is the data source's current one
    std::function<void()> deleteRow;        ///< takes the place of the data source's plain Delete
    std::function<void()> afterRowDelete;
    std::function<void()> rowOrColumnChanged;
};
