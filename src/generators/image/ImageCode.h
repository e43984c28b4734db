#pragma once

#include <string>

#include "state/Engine.h"

namespace korvane {

/// The file that a picture's path means. A relative one leads to a picture in the show's folder, so
/// that a show can be handed on together with its pictures, or else where the system looks for it.
std::string pictureFile(const std::string& path, const std::string& showFolder,
                        Disk& disk = machineDisk());

/// Loads the effect's image of this index into the deck's hidden picture; false if there is no such
/// file. kInvalidPicture if it can't be read.
bool loadImage(Engine& engine, Deck& deck, int index);
/// The same for a path.
bool loadImage(Engine& engine, Deck& deck, const std::string& path);

/// Puts the window onto the image at the start of its travel; a direction that doesn't exist leaves
/// it where it is. kOverflow if the image is wider than 16 bits tell.
void placeImage(Engine& engine, Deck& deck);

/// Makes the deck's mini picture of the image, arms the travel, and samples it. An empty list shows
/// a message and turns the deck black.
void prepareImage(Engine& engine, Deck& deck);

/// Reads the mini picture into the deck's frame and publishes it.
void sampleMini(Engine& engine, Deck& deck);

/// A tick of the step timer: moves the window by one pixel, copies it and samples it.
void moveImage(Engine& engine, Deck& deck);

/// A tick of the sequence timer, which the tick has turned off: the next image of the list. A file
/// that has gone shows a message and ends the sequence.
void nextImage(Engine& engine, Deck& deck);

/// Sets the sequence timer to the time of an image, in seconds in the record, and turns it on.
void holdImage(Deck& deck, int index);

}  // namespace korvane
