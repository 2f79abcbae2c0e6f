#include "app/letter/letter_file.h"

#include "base/files.h"
#include "documents/rtf_reader.h"

namespace zelvo {

Result<std::string> readLetterFile(const std::string& path) {
  auto rtf = readBytes(path);
  if (rtf && !isRichText(*rtf))
    return Error{Trouble::BadInput, "\"" + path +
                                        "\" is no rich text. Open it in a word processor, save it as rich text "
                                        "(.rtf), and try again."};
  return rtf;
}

}  // namespace zelvo
