#include "documents/line_items.h"

#include <algorithm>
#include <utility>

#include "base/text.h"

namespace zelvo {

namespace {

constexpr double kTwipsPerPoint = 20;
// A word is cut into items of this many bytes, so that a line without blanks costs no more than any other; a row of
// blanks likewise.
constexpr std::size_t kLongestItem = 200;

bool isIdeograph(char32_t c) {
  return (c >= 0x2E80 && c < 0xD7A4) || (c >= 0xF900 && c < 0xFB00) || c >= 0x20000;
}
bool isInvisible(char32_t c) {
  return c == 0x200E || c == 0x200F || c == 0x2060 || c == 0xFEFF;
}
bool isHyphen(char32_t c) {
  return c == U'-' || c == 0x2013 || c == 0x2014 || c == 0x200B;
}

double pictureWidth(const Picture& picture, const LineArea& area) {
  const double width = std::min<double>(picture.width, area.width);
  const double height = pictureHeight(picture, width);
  return height > area.height ? width * area.height / height : width;
}

class Cutter {
 public:
  Cutter(LineItems& result, const FontMeasure& fonts) : result_(result), fonts_(fonts) {}

  void add(const Run& run, const LineArea& area) {
    if (run.style.capitals == Capitals::Small && !run.picture)
      return addSmallCapitals(run);
    result_.looks.push_back(lookOf(run.style, fonts_));
    if (run.picture) {
      addItem(ItemKind::Picture, {}, pictureWidth(*run.picture, area), true);
      result_.items.back().picture = run.picture;
    } else if (run.live != LiveField::None) {
      cut(area.live(run.live));
    } else {
      cut(run.style.capitals == Capitals::All ? upper(run.text) : run.text);
    }
  }

 private:
  // What was typed in small letters stands in smaller capitals.
  void addSmallCapitals(const Run& run) {
    std::string small, other;
    const auto end = [&](std::string& text, double part) {
      if (text.empty())
        return;
      TextStyle style = run.style;
      style.font.points *= part;
      result_.looks.push_back(lookOf(style, fonts_));
      cut(std::exchange(text, {}));
    };
    for (std::size_t position = 0; position < run.text.size();) {
      const std::size_t begin = position;
      nextCharacter(run.text, position);
      const std::string letter = run.text.substr(begin, position - begin);
      const bool isSmall = upper(letter) != letter;
      end(isSmall ? other : small, isSmall ? 1 : 0.8);
      (isSmall ? small : other) += upper(letter);
    }
    end(small, 0.8);
    end(other, 1);
  }

  void cut(std::string_view text) {
    for (std::size_t position = 0; position < text.size();) {
      const char32_t character = nextCharacter(text, position);
      if (character == U'\t' || character == U'\n')
        addMark(character == U'\t' ? ItemKind::Tab : ItemKind::Break);
      else if (character == U' ')
        addBlank();
      else if (!isInvisible(character))
        addLetter(character, position < text.size() ? text[position] : ' ');
    }
    endWord(false);
    endBlanks();
  }

  void addMark(ItemKind kind) {
    endWord(false);
    endBlanks();
    addItem(kind, {}, 0, kind == ItemKind::Tab);
  }

  void addBlank() {
    endWord(false);
    blanks_ += ' ';
    if (blanks_.size() >= kLongestItem)
      endBlanks();
  }

  void addLetter(char32_t character, char following) {
    endBlanks();
    const bool inside = !word_.empty();
    appendCharacter(word_, character == 0x2011 ? U'-' : character);
    // Not behind the hyphen of "-5", nor inside "26-0012".
    const bool behindHyphen = isHyphen(character) && inside && !(following >= '0' && following <= '9');
    if (behindHyphen || isIdeograph(character))
      endWord(true);
    else if (word_.size() >= kLongestItem)
      endWord(false);
  }

  void endWord(bool mayBreak) {
    if (!word_.empty())
      addItem(ItemKind::Text, std::exchange(word_, {}), -1, mayBreak);
  }

  void endBlanks() {
    if (!blanks_.empty())
      addItem(ItemKind::Blank, std::exchange(blanks_, {}), -1, true);
  }

  void addItem(ItemKind kind, std::string text, double width, bool mayBreak) {
    const std::size_t look = result_.looks.size() - 1;
    if (width < 0)
      width = fonts_.advance(result_.looks[look].font, text);
    result_.items.push_back({kind, look, std::move(text), width, mayBreak, nullptr});
  }

  LineItems& result_;
  const FontMeasure& fonts_;
  std::string word_;
  std::string blanks_;
};

}  // namespace

LineLook lookOf(const TextStyle& style, const FontMeasure& fonts) {
  constexpr double scriptPart = 2.0 / 3;
  LineLook look{style, style.font, 0, fonts.heights(style.font)};
  if (style.script == Script::Normal)
    return look;
  look.font.points *= scriptPart;
  look.raise = style.font.points * kTwipsPerPoint * (style.script == Script::Super ? 1.0 / 3 : -1.0 / 6);
  return look;
}

LineItems itemsOf(const Paragraph& paragraph, const LineArea& area, const FontMeasure& fonts) {
  LineItems result;
  Cutter cutter(result, fonts);
  for (const Run& run : paragraph.runs)
    cutter.add(run, area);
  return result;
}

std::size_t bytesThatFit(const std::string& text, const TextFont& font, double width, const FontMeasure& fonts) {
  std::vector<std::size_t> ends;
  for (std::size_t position = 0; position < text.size();) {
    nextCharacter(text, position);
    ends.push_back(position);
  }
  const auto tooLong = std::partition_point(ends.begin(), ends.end(), [&](std::size_t end) {
    return fonts.advance(font, std::string_view(text).substr(0, end)) <= width;
  });
  return tooLong == ends.begin() ? ends.front() : *(tooLong - 1);
}

}  // namespace zelvo
