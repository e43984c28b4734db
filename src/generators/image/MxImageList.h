#pragma once

#include <string>

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

  ListView myImageList;
  PictureButton addImage, removeImage, upImage, downImage;
  Button OK;

 private:
  void myImageList_Click(int row, int col);
  void addImage_Click();
  void removeImage_Click();
  void moveImageRow(int by);
  void OK_Click();
  /// Copies the list to the record. kTypeMismatch for a time that is no number, kOverflow for more
  /// pictures than 16 bits count; the record is as before then.
  void storeList();

  Engine& engine_;
};

}  // namespace korvane
