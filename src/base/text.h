#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace zelvo {

// Texts are UTF-8 throughout the program. Lengths and positions that the office knows (the width of a column, the first
// 18 characters of a name) count characters, never bytes.

/// The text without blanks, tabs and line breaks at both ends (or at the left or right end alone).
std::string_view trim(std::string_view text);
std::string_view trimLeft(std::string_view text);
std::string_view trimRight(std::string_view text);

/// Upper and lower case, letter by letter, for Latin (with its accents), Greek and Cyrillic letters; a letter whose
/// other case is longer ("ß") stays as it is.
std::string upper(std::string_view text);
std::string lower(std::string_view text);

/// One character in the form under which texts are compared: lower case, its accent kept.
inline char32_t foldCharacter(char32_t character);
/// The same for what lies beyond the plain letters of ASCII.
char32_t foldBeyondAscii(char32_t character);

/// One character as a search sees it: folded, and of a letter with an accent the plain one ("É" is "e").
inline char32_t plainCharacter(char32_t character);
char32_t plainBeyondAscii(char32_t character);

/// The text with each character folded; two texts are alike without regard to case when their folded forms are equal.
std::string fold(std::string_view text);
bool alike(std::string_view a, std::string_view b);

/// Less than, equal to or greater than zero, comparing folded characters one by one; of two that begin alike the
/// shorter comes first.
int compareFolded(std::string_view a, std::string_view b);

/// Whether all characters are the plain ones of ASCII, each of one byte.
bool isAscii(std::string_view text);

/// The number of characters.
std::size_t length(std::string_view text);

/// The first, or last, `count` characters; the whole text when it is shorter.
std::string_view left(std::string_view text, std::size_t count);
std::string_view right(std::string_view text, std::size_t count);

/// The text filled up with blanks at the right (or left) to `width` characters; a longer one stays whole.
std::string padRight(std::string_view text, std::size_t width);
std::string padLeft(std::string_view text, std::size_t width);

/// The parts between the separators; always one more than there are separators, so an empty text gives one empty part.
std::vector<std::string> split(std::string_view text, char separator);
std::string join(const std::vector<std::string>& texts, std::string_view separator);
std::string replaceAll(std::string_view text, std::string_view what, std::string_view with);

bool isUtf8(std::string_view bytes);
std::string fromWindows1252(std::string_view bytes);
/// One code page byte as a character, for the 125x and other single-byte code pages of letters (437, 850, 874,
/// 1250-1258, 10000); an unknown page reads as 1252. A byte that a page leaves open reads as U+FFFD, below 0xA0 as the
/// control of that number.
char32_t codePageCharacter(int codePage, unsigned char byte);

/// The next character of the text at `position`, which is moved behind it. A byte that is no UTF-8 reads as U+FFFD. At
/// the end of the text it gives U+0000 and stays.
char32_t nextCharacter(std::string_view text, std::size_t& position);
/// The character as UTF-8 at the end of the text; what is no character becomes U+FFFD.
void appendCharacter(std::string& text, char32_t character);

inline char32_t foldCharacter(char32_t character) {
  if (character >= 0x80)
    return foldBeyondAscii(character);
  return character - U'A' < 26 ? character + 32 : character;
}

inline char32_t plainCharacter(char32_t character) {
  return character >= 0x80 ? plainBeyondAscii(character) : foldCharacter(character);
}

}  // namespace zelvo
