#include "generators/image/MxImageList.h"

#include <cstddef>
#include <utility>
#include <vector>

#include "generators/Effects.h"
#include "generators/image/ImageCode.h"
#include "generators/kit/NumberCell.h"
#include "platform/Numbers.h"
#include "platform/Text.h"

namespace korvane {
namespace {

// The columns of the list.
enum Column { kName, kDuration, kPath, kColumns };

std::string fileName(const std::string& path) {
  const std::size_t slash = path.find_last_of("/\\");
  return slash == std::string::npos ? path : path.substr(slash + 1);
}

}  // namespace

MxImageList::MxImageList(Engine& engine)
    : Form("MxImageList", "Image List"),
      myImageList("myImageList",
                  {.toolTip = "a click shows a picture, a click on its duration edits that"}),
      addImage("addImage", Icon::Add, {.toolTip = "add file"}),
      removeImage("removeImage", Icon::Remove, {.toolTip = "remove file"}),
      upImage("upImage", Icon::Up, {.toolTip = "move up"}),
      downImage("downImage", Icon::Down, {.toolTip = "move down"}),
      OK("OK", {.caption = "OK", .toolTip = "take the list and close"}),
      engine_(engine) {
  add({&myImageList, &addImage, &removeImage, &upImage, &downImage, &OK});
  setLayout(column(
      {row({Layout(myImageList, 1), column({addImage, removeImage, upImage, downImage, space()})},
           1),
       row({space(), OK})}));
  myImageList.setColumns({{"File Name", 0.3}, {"Duration (s)", 0.2, true}, {"Path", 0.5}});
  bindNumberColumn(myImageList, kDuration, engine.platform, normalTime, nullptr);
  myImageList.onClick = [this](int row, int col) { myImageList_Click(row, col); };
  addImage.onClick = [this] { addImage_Click(); };
  removeImage.onClick = [this] { removeImage_Click(); };
  upImage.onClick = [this] { moveImageRow(-1); };
  downImage.onClick = [this] { moveImageRow(1); };
  OK.onClick = [this] { OK_Click(); };
}

void MxImageList::open() {
  deck_ = &engine_.editedDeck();
  const Effect& effect = deck_->effect();
  slot_ = static_cast<std::size_t>(deck_->sel);
  files_ = effect.imageFiles;
  myImageList.clear();
  for (std::size_t i = 0; std::cmp_less(i, effect.imageCount); ++i) {
    const std::string time = formatGeneral(effect.itemTimes.at(i), engine_.platform.numberFormat());
    myImageList.add(effect.imageNames.at(i), {time, effect.imageFiles.at(i)});
  }
  engine_.desktop.show(*this);
}

void MxImageList::commit() {
  if (!visible()) return;
  const bool playing = deck_ == &engine_.editedDeck() && std::cmp_equal(slot_, deck_->sel);
  if (playing) return OK_Click();
  if (slot_ < deck_->efx.size()) {
    Effect& effect = deck_->efx[slot_];
    const bool sameRecord = effect.type == kImage && effect.imageFiles == files_;
    if (sameRecord) storeList(effect);
  }
  engine_.desktop.hide(*this);
}

void MxImageList::myImageList_Click(int row, int col) {
  if (col == kDuration) {
    myImageList.beginEdit(row, col);
    return;
  }
  const std::string path = myImageList.cell(row, kPath);
  Deck& deck = engine_.editedDeck();
  if (!loadImage(engine_, deck, path))
    return engine_.platform.messageBox("File not found: " + path);
  placeImage(engine_, deck);
  prepareImage(engine_, deck);
}

void MxImageList::addImage_Click() {
  const std::string path =
      chosenFile(engine_.platform, {.purpose = FileQuestion::Purpose::Open,
                                    .title = "Add Image",
                                    .filter = "Bilder bmp,jpg,gif,ico|*.bmp;*.jpg;*.gif;*.ico",
                                    .initialDirectory = "",
                                    .defaultExtension = ""});
  myImageList.add(fileName(path), {"30", path});
}

void MxImageList::removeImage_Click() {
  const int row = myImageList.selected();
  if (row >= 0) myImageList.remove(row);
}

void MxImageList::moveImageRow(int by) {
  const int row = myImageList.selected();
  const int neighbour = row + by;
  if (row < 0 || neighbour < 0 || neighbour >= myImageList.count()) return;
  myImageList.exchange(row, neighbour);
  myImageList.select(neighbour);
}

void MxImageList::storeList(Effect& effect) const {
  const std::int16_t count = toInt16(myImageList.count());
  std::vector<std::string> names;
  std::vector<std::string> files;
  std::vector<double> times;
  for (int row = 0; row < count; ++row) {
    names.push_back(myImageList.cell(row, kName));
    times.push_back(numberInCell(myImageList, row, kDuration));
    files.push_back(myImageList.cell(row, kPath));
  }
  effect.imageCount = count;
  effect.imageNames = std::move(names);
  effect.itemTimes = std::move(times);
  effect.imageFiles = std::move(files);
  fitLists(effect);
}

void MxImageList::OK_Click() {
  Deck& deck = engine_.editedDeck();
  storeList(deck.effect());
  if (deck.effect().imageCount > 1) {
    holdImage(deck, 0);
  } else {
    deck.timer2.disable();
  }
  placeImage(engine_, deck);
  prepareImage(engine_, deck);
  engine_.desktop.hide(*this);
}

}  // namespace korvane
