#include "documents/rtf_writer.h"

#include <algorithm>
#include <cmath>

#include "base/text.h"

namespace zelvo {

namespace {

// The number is signed and has 16 bits; what is longer goes as a pair.
void appendUnit(std::string& rtf, char32_t unit, int standIns) {
  rtf += "\\u" + std::to_string(unit < 0x8000 ? static_cast<int>(unit) : static_cast<int>(unit) - 0x10000);
  if (standIns == 0)
    rtf += ' ';
  rtf.append(static_cast<std::size_t>(standIns), '?');
}

// A letter states the size of the whole picture and what is cut off from it.
void appendSize(std::string& rtf, std::string_view goal, std::string_view firstCrop, std::string_view secondCrop,
                int shown, double first, double second) {
  const double whole = shown / std::max(0.01, 1 - first - second);
  (rtf += goal) += std::to_string(std::lround(whole));
  if (first > 0)
    (rtf += firstCrop) += std::to_string(std::lround(first * whole));
  if (second > 0)
    (rtf += secondCrop) += std::to_string(std::lround(second * whole));
}

}  // namespace

void appendRtfHex(std::string& rtf, std::string_view bytes) {
  constexpr std::string_view digits = "0123456789abcdef";
  constexpr std::size_t bytesInLine = 64;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    if (i % bytesInLine == 0)
      rtf += "\r\n";
    const auto byte = static_cast<unsigned char>(bytes[i]);
    rtf += digits[byte >> 4];
    rtf += digits[byte & 15];
  }
}

void appendRtfCharacter(std::string& rtf, char32_t character, int standIns) {
  switch (character) {
    case U'\n':
      rtf += "\\line ";
      return;
    case U'\t':
      rtf += "\\tab ";
      return;
    case U'\\':
    case U'{':
    case U'}':
      rtf += '\\';
      rtf += static_cast<char>(character);
      return;
    case 0x00A0:
      rtf += "\\~";
      return;
    default:
      break;
  }
  if (character < 0x20 || character == 0x7F)
    return;
  if (character < 0x7F) {
    rtf += static_cast<char>(character);
  } else if (character < 0x10000) {
    appendUnit(rtf, character, standIns);
  } else {
    appendUnit(rtf, 0xD800 + ((character - 0x10000) >> 10), standIns);
    appendUnit(rtf, 0xDC00 + ((character - 0x10000) & 0x3FF), standIns);
  }
}

std::string rtfText(std::string_view text, int standIns) {
  std::string rtf;
  for (char32_t character : letterCharacters(text))
    appendRtfCharacter(rtf, character, standIns);
  return rtf;
}

std::u32string letterCharacters(std::string_view text) {
  std::u32string characters;
  for (std::size_t position = 0; position < text.size();) {
    const char32_t character = nextCharacter(text, position);
    if (character == U'\r') {
      if (position < text.size() && text[position] == '\n')
        ++position;
      characters += U'\n';
    } else if (character == U'\n' || character == U'\t' || (character >= 0x20 && character != 0x7F)) {
      characters += character;
    }
  }
  return characters;
}

std::string rtfPicture(const Picture& picture) {
  // A bitmap stands in a letter without the header of its file.
  constexpr std::size_t fileHeader = 14;
  std::string_view bytes = picture.bytes;
  std::string rtf = "{\\pict";
  switch (picture.kind) {
    case PictureKind::Png:
      rtf += "\\pngblip";
      break;
    case PictureKind::Jpeg:
      rtf += "\\jpegblip";
      break;
    case PictureKind::Bmp:
      rtf += "\\dibitmap0";
      bytes.remove_prefix(std::min(fileHeader, bytes.size()));
      break;
    case PictureKind::Metafile:
      rtf += "\\wmetafile8";
      break;
  }
  appendSize(rtf, "\\picwgoal", "\\piccropl", "\\piccropr", picture.width, picture.cropLeft, picture.cropRight);
  appendSize(rtf, "\\pichgoal", "\\piccropt", "\\piccropb", picture.height, picture.cropTop, picture.cropBottom);
  appendRtfHex(rtf, bytes);
  return rtf + "}";
}

}  // namespace zelvo
