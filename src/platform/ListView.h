#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/Color.h"
#include "platform/Control.h"

namespace korvane {

class Raster;

/// A list of rows with columns, after the list control `ExtLV`. It has two notions side by side:
/// the current row, there as soon as the list has a row, and the mark of selection, which at most
/// one row carries.
class ListView : public Control {
 public:
  struct Column {
    std::string title;
    double width = 0;       ///< share of the list's width, 0 - 1; 0 hides the column
    bool editable = false;  ///< cells can be edited in place
    bool colored = false;   ///< drawn in the row's colour; other columns in the view's own
  };
  struct Row {
    std::string text;
    std::vector<std::string> sub;  ///< texts of the second column and on
    Color color = 0;               ///< text colour of the coloured columns
    bool selected = false;

    bool operator==(const Row&) const = default;
  };

  explicit ListView(std::string name, Look look = {})
      : Control(Kind::ListView, std::move(name), std::move(look)) {}

  const std::vector<Column>& columns() const { return columns_; }
  void setColumns(std::vector<Column> columns);
  /// True if a column can be edited in place.
  bool editable() const;

  const std::vector<Row>& rows() const { return rows_; }
  int count() const { return static_cast<int>(rows_.size()); }
  /// A row; kSubscript if there is none at the index (from 0).
  const Row& row(int index) const;
  /// The text of a cell; an empty text for a column that the row lacks.
  std::string cell(int row, int col) const;

  /// Adds a row at the end, unselected. The first row becomes the current one.
  void add(std::string text, std::vector<std::string> sub = {}, Color color = 0);
  /// Replaces the rows, in one step for the view; the current row stays that of the same index.
  void setRows(std::vector<Row> rows);
  void setCell(int row, int col, std::string text);
  /// Removes a row; the current one stays the same row or, if it goes, the row that takes its
  /// place. An open editor closes and what was typed is lost.
  void remove(int index);
  void clear();

  int current() const { return current_; }  ///< the row that has the focus, -1 for none
  /// The first marked row, -1 for none.
  int selected() const;
  /// Makes the row the current one and gives it the mark alone. No event.
  void select(int index);
  void unselectAll();

  /// The row that the view brings to the middle when it becomes another one; -1 for none.
  int centered() const { return centered_; }
  void center(int row);

  /// What a person does: left click on a cell, double click on a row.
  void click(int row, int col);
  void doubleClick(int row);

  /// True for the keys that mean something to a list: F2 edits the current row, space clicks it,
  /// Enter double clicks it.
  static bool takesKey(int key);
  void key(int key);
  /// One of the system's own keys has moved to a row: that clicks it, if it is another one.
  void reach(int row);

  /// What the owner of the list lets a person do with rows besides: an entry of their popup, and
  /// the key that does the same.
  struct Action {
    std::string caption;
    std::string key;
    std::function<void(const std::vector<int>& rows)> run;
  };
  std::vector<Action> actions;

  /// Several rows are gathered for an action: by Control and a click, which puts a row to them or
  /// takes it out, or by Shift and a click, which takes all from the current row on. Where there is
  /// no action both are plain clicks.
  void clickGathering(int row, int col);
  void clickRange(int row, int col);
  /// The gathered rows from the top; empty while there is no more than the current one.
  const std::vector<int>& gathered() const { return gathered_; }
  bool isGathered(int row) const;
  /// The rows that an action on this one means: all that are gathered if it is one of them.
  std::vector<int> rowsFor(int row) const;
  /// The action of a key, nullptr if none has it.
  const Action* actionOf(const std::string& key) const;

  /// A letter that a person typed, at this time in milliseconds: with those typed just before, it
  /// finds the first row whose name begins so, and clicks it if it is another one.
  void typed(const std::string& letter, std::int64_t at);

  /// Rows that a person drags from a list and lets go.
  struct Drop {
    ListView& from;
    std::vector<int> rows;  ///< from the top
    int before;             ///< the row of this list that they shall stand before; count() for last
    bool copy;              ///< the rows stay where they are as well
  };
  /// Whether rows of that list may be dropped here; unset: none, and no row can be dragged. Where
  /// rows can be dragged, a click counts when the button is let go.
  std::function<bool(const ListView& from)> takesRowsOf;
  std::function<void(const Drop& drop)> onDrop;

  /// The name of a row: the text of its first column, unless the owner says otherwise.
  std::string nameOf(int row) const { return onName ? onName(row) : cell(row, 0); }
  /// The text with which an editor opens.
  std::string textToEdit(int row, int col) const { return onName ? onName(row) : cell(row, col); }

  /// In-place editing. beginEdit opens the editor on a cell of an editable column, endEdit puts
  /// what was typed through onValidate and onEdited and stores the result.
  bool beginEdit(int row, int col);
  void endEdit(const std::string& typed);
  /// Closes the editor and leaves the cell as it was.
  void cancelEdit() { editRow_ = -1; }
  bool editing() const { return editRow_ >= 0; }
  int editRow() const { return editRow_; }
  int editCol() const { return editCol_; }

  /// Exchanges the contents of two rows; current row and mark stay at their places.
  void exchange(int row, int other);

  /// Lets the view draw a small picture before the text of each row. It asks for those of the rows
  /// that can be seen, each time that it draws them; nullptr stands for none. Nothing to ask: there
  /// are no pictures.
  void setPictures(std::function<const Raster*(int row)> picture);
  bool hasPictures() const { return picture_ != nullptr; }
  const Raster* picture(int row) const { return picture_(row); }
  /// Has the pictures drawn again.
  void picturesChanged() const { run(onPictures); }
  std::function<void()> onPictures;  ///< for the view

  /// A person is about to choose a row; the list is as it was.
  std::function<void(int row)> beforeClick;
  std::function<void(int row, int col)> onClick;
  std::function<void(int row)> onDoubleClick;
  std::function<std::string(int row)> onName;  ///< its one editable column shows more than the name
  /// The text with which the editor closes, made of what was typed.
  std::function<std::string(int col, const std::string& typed)> onValidate;
  /// The end of an edit: the text to store in the cell, made of the old and the new one.
  std::function<std::string(int col, const std::string& old, const std::string& typed)> onAfterEdit;
  /// The edited text stands in the cell.
  std::function<void(int row, int col)> onEdited;

 private:
  Row& at(int index);
  void editCurrent();
  int firstNamed(const std::string& beginning) const;

  std::vector<Column> columns_;
  std::vector<Row> rows_;
  std::function<const Raster*(int row)> picture_;
  int current_ = -1;
  int centered_ = -1;
  int editRow_ = -1;
  int editCol_ = -1;
  std::vector<int> gathered_;
  std::string typed_;
  std::int64_t typedAt_ = 0;
};

}  // namespace korvane
