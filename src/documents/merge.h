#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "base/date.h"
#include "base/result.h"

namespace zelvo {

/// What a letter is filled with. Lives for the whole run: a value stays for the next letter until it is set again.
struct MergeContext {
  int counter = 1;                                   ///< "##"; below 1 counts as 1
  std::string letterhead;                            ///< "%mh": rich text, or plain text
  std::string name;                                  ///< "%nm"
  std::string address = "<no address>";              ///< "%ad" and "%al"
  std::string cityStateZip = "<no city state zip>";  ///< "%zp"
  std::string ln, mi, id, ms, me;
  std::string subheading;              ///< "%sh": what a listing under a letterhead is about
  std::string parcel;                  ///< "%sbl"
  std::array<std::string, 26> values;  ///< 1 to 25: "%01" to "%25", "%$01" to "%$25"
};

/// The picture files that codes name, as bytes. Nothing when there is no such file.
using PictureSource = std::function<std::optional<std::string>(std::string_view path)>;

/// Fills the codes of a rich-text letter, wherever they lie: over formatting runs, in tables, headers and footers. The
/// value takes the format of the code's first character; every other byte of the letter stays as the office made it.
/// Picture paths are "\memos\sig.bmp", "\memos\logo.bmp" and "\pics\..." of the program folder. Values that hold codes
/// of one another can ask for more than any letter: what would grow beyond ten million characters is an error.
Result<std::string> mergeLetter(std::string_view rtf, const MergeContext& context, const DateTime& now,
                                const PictureSource& pictures);

/// Splits an owner's or addressee's block at its first comma into address line and city, state and zip.
void splitAddress(std::string_view block, MergeContext& context);

/// "MP" + id, with a "." behind the eighth character when it is longer: 1234567 and 89 give MP123456.789.
std::string photographName(std::string_view id);

/// A value that letters show as a date: m/d/yyyy, m/d/yy or "mmmm d, yyyy". Not with "-": permit numbers and parcel
/// keys such as 3-1-12 look so.
std::optional<Date> letterDate(std::string_view value);

/// The value under the format that a character behind "%" chooses: "$" money, "@" ordinal date, "&" short date, "^"
/// time.
std::string formattedValue(char format, std::string_view value, const DateTime& now);

}  // namespace zelvo
