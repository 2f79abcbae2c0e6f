#include "documents/print_types.h"

#include <string>
#include <vector>

#include "base/comma_record.h"
#include "base/files.h"
#include "base/number.h"
#include "base/text.h"

namespace zelvo {

namespace {

constexpr std::size_t kValues = 6;

std::string fileOf(std::string_view programFolder) {
  return joinPath(programFolder, "\\idtypes.txt");
}

// The line of a type; nothing when it has none.
std::vector<std::string> valuesOf(std::string_view line, std::string_view type) {
  std::size_t position = 0;
  std::vector<std::string> values = readCommaValues(line, position, kValues);
  const bool whole = values.size() == kValues && alike(values[0], type);
  return whole ? values : std::vector<std::string>();
}

}  // namespace

bool hasOwnMargins(std::string_view type) {
  return type.starts_with("ID ");
}

std::optional<PrintOptions> optionsOfType(std::string_view programFolder, std::string_view type, PrintOptions options) {
  for (const std::string& line : readLines(fileOf(programFolder)).valueOr({}))
    if (const auto values = valuesOf(line, type); !values.empty()) {
      options.left = Val(values[1]);
      options.top = Val(values[2]);
      options.right = Val(values[3]);
      options.bottom = Val(values[4]);
      options.fontSize = CInt(Val(values[5]));
      return options;
    }
  return std::nullopt;
}

Result<void> keepOptionsOfType(std::string_view programFolder, const PrintOptions& options) {
  std::vector<std::string> lines = readLines(fileOf(programFolder)).valueOr({});
  std::erase_if(lines, [&](const std::string& line) { return !valuesOf(line, options.type).empty(); });
  lines.push_back(
      writeCommaRecord({options.type, numberText(options.left), numberText(options.top), numberText(options.right),
                        numberText(options.bottom), std::to_string(options.fontSize)}));
  return writeLines(fileOf(programFolder), lines);
}

}  // namespace zelvo
