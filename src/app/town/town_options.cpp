#include "app/town/town_options.h"

#include <algorithm>
#include <charconv>
#include <string_view>

namespace zelvo {

namespace {

constexpr std::size_t kFewestParcels = 400;
constexpr std::uint64_t kMost = 20'000'000;

Error wrong(std::string what) {
  return {Trouble::BadInput, std::move(what)};
}

Result<std::uint64_t> wholeNumber(std::string_view option, std::string_view text, std::uint64_t least,
                                  std::uint64_t most) {
  std::uint64_t number = 0;
  const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
  if (read.ec != std::errc() || read.ptr != text.data() + text.size() || number < least || number > most)
    return wrong("\"" + std::string(text) + "\" will not do for " + std::string(option) +
                 ": it takes a whole number from " + std::to_string(least) + " to " + std::to_string(most) + ".");
  return number;
}

Result<void> takeOption(TownOptions& options, std::string_view option, std::string_view value) {
  const bool seed = option == "--seed";
  if (!seed && option != "--parcels" && option != "--permits")
    return wrong("There is no option " + std::string(option) + ".");
  const auto number = wholeNumber(option, value, option == "--parcels" ? 1 : 0, seed ? UINT64_MAX : kMost);
  if (!number)
    return number.error();
  if (seed)
    options.seed = *number;
  else
    (option == "--parcels" ? options.parcels : options.permits) = static_cast<std::size_t>(*number);
  return {};
}

Result<void> takeFolder(TownOptions& options, std::string_view folder) {
  if (!options.folder.empty())
    return wrong("One folder only: \"" + options.folder + "\" and \"" + std::string(folder) + "\" were given.");
  if (folder.empty())
    return wrong("The folder has no name.");
  options.folder = folder;
  return {};
}

}  // namespace

Result<TownOptions> townOptions(std::span<const char* const> arguments) {
  TownOptions options;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string_view argument = arguments[i];
    if (argument == "--help") {
      options.help = true;
      return options;
    }
    const bool isOption = argument.starts_with("--");
    if (isOption && i + 1 == arguments.size())
      return wrong(std::string(argument) + " needs a number behind it.");
    const auto taken = isOption ? takeOption(options, argument, arguments[++i]) : takeFolder(options, argument);
    if (!taken)
      return taken.error();
  }
  if (options.folder.empty())
    return wrong("Say in which folder the town is to be made.");
  if (options.parcels == 0)
    options.parcels = std::max(kFewestParcels, options.permits * 3 / 10);
  return options;
}

}  // namespace zelvo
