#include "documents/merge.h"

#include <algorithm>

#include "documents/letter_text.h"
#include "documents/picture_file.h"
#include "documents/rtf_insert.h"
#include "documents/rtf_writer.h"

namespace zelvo {

namespace {

constexpr int kLastValue = 25;  // %26 and on belong to nobody and stay in the letter

// What fits on letter paper between margins of an inch: a camera's photograph would run off the paper otherwise.
constexpr int kWidestPicture = 9360;
constexpr int kHighestPicture = 12960;

class Merge {
 public:
  Merge(const MergeContext& context, const DateTime& now, const PictureSource& pictures)
      : context_(context), now_(now), pictures_(pictures) {}

  // The order of the codes counts: a value that holds a later code is filled by it, one that holds an earlier code is
  // not.
  Result<std::string> run(std::string_view rtf) const {
    LetterText letter(rtf);
    fillCounterAndDates(letter);
    fillPlain(letter, "%ln", context_.ln);
    fillPlain(letter, "%mi", context_.mi);
    fillPlain(letter, "%id", context_.id);
    if (!isRichText(context_.letterhead)) {
      fillFormatted(letter, "%mh", context_.letterhead);
    } else if (letter.replaceWithSource("%mh", rtfInsert(context_.letterhead, letter.fonts()))) {
      if (letter.isFull())
        return tooLong();
      // The letterhead has become part of the letter and is searched for the later codes like the rest of it.
      const std::string withLetterhead = letter.source();
      LetterText again(withLetterhead);
      return fillBehindLetterhead(again);
    }
    return fillBehindLetterhead(letter);
  }

 private:
  void fillCounterAndDates(LetterText& letter) const {
    letter.replace("##", std::to_string(std::max(1, context_.counter)));
    letter.replace("%dl", datePicture(now_, "mmmm dd, yyyy"));
    letter.replace("%ds", shortDate(now_.date));
    letter.replace("%tm", timeText(now_));
  }

  Result<std::string> fillBehindLetterhead(LetterText& letter) const {
    fillPlain(letter, "%ms", context_.ms);
    fillPlain(letter, "%me", context_.me);
    fillFormatted(letter, "%sh", context_.subheading);
    fillPlain(letter, "%sbl", context_.parcel);
    fillFormatted(letter, "%nm", context_.name);
    fillFormatted(letter, "%ad", context_.address);
    fillFormatted(letter, "%al", context_.address);
    fillFormatted(letter, "%zp", context_.cityStateZip);
    fillPicture(letter, "%pi", "\\pics\\" + photographName(context_.id));
    fillPicture(letter, "%si", "\\memos\\sig.bmp");
    fillPicture(letter, "%logo", "\\memos\\logo.bmp");
    fillNumbered(letter);
    if (letter.isFull())
      return tooLong();
    return letter.source();
  }

  static Error tooLong() {
    return {Trouble::BadInput,
            "The letter was not filled: its values would make it longer than ten million characters.\nLook for codes "
            "such as %01 or %nm inside the values of the record, which fill one another, and take them out."};
  }

  void fillNumbered(LetterText& letter) const {
    for (int number = 1; number <= kLastValue; ++number) {
      const std::string digits = (number < 10 ? "0" : "") + std::to_string(number);
      const std::string& value = context_.values[static_cast<std::size_t>(number)];
      fillPlain(letter, "%" + digits, value);
      fillFormatted(letter, "%$" + digits, value);
    }
  }

  void fillPlain(LetterText& letter, std::string_view code, const std::string& value) const {
    const auto date = letterDate(value);
    letter.replace(code, date ? datePicture(*date, "mm/dd/yyyy") : value);
  }

  void fillFormatted(LetterText& letter, std::string_view code, const std::string& value) const {
    letter.replace(code, formattedValue(code[1], value, now_));
  }

  // A code whose picture is not there vanishes: nobody wants to read it on the letter.
  void fillPicture(LetterText& letter, std::string_view code, const std::string& path) const {
    std::string source;
    if (auto bytes = letter.has(code) && pictures_ ? pictures_(path) : std::nullopt) {
      if (auto picture = readPicture(std::move(*bytes))) {
        fitInto(*picture, kWidestPicture, kHighestPicture);
        source = rtfPicture(*picture);
      }
    }
    letter.replaceWithSource(code, source);
  }

  const MergeContext& context_;
  const DateTime& now_;
  const PictureSource& pictures_;
};

}  // namespace

Result<std::string> mergeLetter(std::string_view rtf, const MergeContext& context, const DateTime& now,
                                const PictureSource& pictures) {
  return Merge(context, now, pictures).run(rtf);
}

}  // namespace zelvo
