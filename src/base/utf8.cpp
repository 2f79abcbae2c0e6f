#include "base/text.h"

namespace zelvo {

namespace {

constexpr char32_t replacement = 0xFFFD;

unsigned char byteAt(std::string_view text, std::size_t position) {
  return static_cast<unsigned char>(text[position]);
}

/// How many bytes follow a lead byte, and the smallest character that needs so many; a byte that leads nothing has
/// none.
struct Lead {
  std::size_t following;
  char32_t bits;
  char32_t smallest;
};

Lead leadOf(unsigned char byte) {
  if (byte >= 0xC2 && byte < 0xE0)
    return {1, static_cast<char32_t>(byte & 0x1F), 0x80};
  if (byte >= 0xE0 && byte < 0xF0)
    return {2, static_cast<char32_t>(byte & 0x0F), 0x800};
  if (byte >= 0xF0 && byte < 0xF5)
    return {3, static_cast<char32_t>(byte & 0x07), 0x10000};
  return {0, 0, 0};
}

bool isCharacter(char32_t character) {
  return character < 0xD800 || (character > 0xDFFF && character <= 0x10FFFF);
}

/// Reads one character beyond ASCII and moves behind it; false, and nothing moved, when the bytes are no UTF-8.
bool readLong(std::string_view text, std::size_t& position, char32_t& character) {
  const Lead lead = leadOf(byteAt(text, position));
  if (lead.following == 0 || text.size() - position <= lead.following)
    return false;
  char32_t read = lead.bits;
  for (std::size_t i = 1; i <= lead.following; ++i) {
    const unsigned char byte = byteAt(text, position + i);
    if ((byte & 0xC0) != 0x80)
      return false;
    read = (read << 6) | (byte & 0x3F);
  }
  if (read < lead.smallest || !isCharacter(read))
    return false;
  character = read;
  position += lead.following + 1;
  return true;
}

void appendByte(std::string& text, char32_t byte) {
  text.push_back(static_cast<char>(byte));
}

}  // namespace

char32_t nextCharacter(std::string_view text, std::size_t& position) {
  if (position >= text.size())
    return 0;
  const unsigned char byte = byteAt(text, position);
  if (byte < 0x80) {
    ++position;
    return byte;
  }
  char32_t character = replacement;
  if (!readLong(text, position, character))
    ++position;
  return character;
}

void appendCharacter(std::string& text, char32_t character) {
  if (!isCharacter(character))
    character = replacement;
  if (character < 0x80)
    return appendByte(text, character);
  if (character < 0x800) {
    appendByte(text, 0xC0 | (character >> 6));
  } else if (character < 0x10000) {
    appendByte(text, 0xE0 | (character >> 12));
    appendByte(text, 0x80 | ((character >> 6) & 0x3F));
  } else {
    appendByte(text, 0xF0 | (character >> 18));
    appendByte(text, 0x80 | ((character >> 12) & 0x3F));
    appendByte(text, 0x80 | ((character >> 6) & 0x3F));
  }
  appendByte(text, 0x80 | (character & 0x3F));
}

bool isUtf8(std::string_view bytes) {
  char32_t character = 0;
  for (std::size_t position = 0; position < bytes.size();) {
    if (byteAt(bytes, position) < 0x80)
      ++position;
    else if (!readLong(bytes, position, character))
      return false;
  }
  return true;
}

std::string fromWindows1252(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size() + bytes.size() / 8);
  for (const char byte : bytes)
    appendCharacter(text, codePageCharacter(1252, static_cast<unsigned char>(byte)));
  return text;
}

}  // namespace zelvo
