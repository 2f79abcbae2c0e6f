#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "documents/document.h"

namespace zelvo {

/// A picture file (png, jpeg or bmp, told by its content) as a picture of the size that it states for itself, at 96
/// dots to the inch when it states none. Nothing when it is none of these.
std::optional<Picture> readPicture(std::string bytes);

/// A jpeg file of the usual kinds, which goes into other files as it is.
struct PlainJpeg {
  int width = 0, height = 0;  ///< in dots
  int colours = 0;            ///< of each dot: 1 is grey, 3 are those of a photograph
};
/// Nothing when the bytes are no jpeg, one of a kind that few programs read, or one that breaks off.
std::optional<PlainJpeg> plainJpeg(std::string_view bytes);

/// A Windows metafile as a picture, when it draws anything, an inch each way: its letter says how large it is.
std::optional<Picture> drawnPicture(std::string metafile);

/// The same picture, made smaller in proportion until it fits.
void fitInto(Picture& picture, int width, int height);

/// A bitmap as it stands in a letter (a device-independent one, without the header of a file), as a whole .bmp file.
std::string bmpFileOf(std::string_view bitmap);

/// The largest such bitmap inside a Windows metafile: word processors wrap scanned pictures so. Empty when there is
/// none.
std::string bitmapOfMetafile(std::string_view metafile);

}  // namespace zelvo
