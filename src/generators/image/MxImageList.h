#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/Controls.h"
#include "platform/Form.h"
#include "platform/ListView.h"
#include "state/Engine.h"

namespace korvane {

/// The pictures of the Image effect under edit, in their order, with the time that each stays. OK
/// alone writes to the record.
class MxImageList : public Form {
 public:
  explicit MxImageList(Engine& engine);

  /// Fills the list from the record of the deck under edit and shows the window, not modal.
  void open();
  /// Another dialog is about to open: does what OK does. If the deck has gone on to another effect,
  /// the list goes to the record that it was filled from, and nothing plays.
  void commit();

  ListView myImageList;
  PictureButton addImage, removeImage, upImage, downImage;
  Button OK;

 private:
  void myImageList_Click(int row, int col);
  void addImage_Click();
  void removeImage_Click();
  void moveImageRow(int by);
  void OK_Click();
  /// Copies the list to a record. kTypeMismatch for a time that is no number, kOverflow for more
  /// pictures than 16 bits count; the record is as before then.
  void storeList(Effect& effect) const;

  Engine& engine_;
  // Where the list was filled from, and the files that were there.
  Deck* deck_ = nullptr;
  std::size_t slot_ = 0;
  std::vector<std::string> files_;
};

}  // namespace korvane
