#include "app/letter/letter_command.h"

#include <charconv>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace zelvo {

namespace {

using Arguments = std::vector<std::string>;

Error wrong(std::string what) {
  return {Trouble::BadInput, std::move(what)};
}

// "\n" as a line break and "\\" as a backslash; any other backslash stands for itself, as in the console.
std::string unescaped(std::string_view value) {
  std::string text;
  for (std::size_t i = 0; i < value.size(); ++i) {
    const char next = value[i] == '\\' && i + 1 < value.size() ? value[i + 1] : '\0';
    if (next == 'n')
      text += '\n';
    else
      text += value[i];
    if (next == 'n' || next == '\\')
      ++i;
  }
  return text;
}

std::optional<int> wholeNumber(std::string_view text) {
  int number = 0;
  const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
  return read.ec == std::errc() && read.ptr == text.data() + text.size() ? std::optional(number) : std::nullopt;
}

std::string* slotNamed(MergeContext& values, std::string_view name) {
  static const std::unordered_map<std::string_view, std::string MergeContext::*> named = {
      {"nm", &MergeContext::name}, {"ad", &MergeContext::address}, {"zp", &MergeContext::cityStateZip},
      {"ln", &MergeContext::ln},   {"mi", &MergeContext::mi},      {"id", &MergeContext::id},
      {"ms", &MergeContext::ms},   {"me", &MergeContext::me},      {"mh", &MergeContext::letterhead}};
  if (const auto found = named.find(name); found != named.end())
    return &(values.*found->second);
  const auto number = wholeNumber(name);
  const int last = static_cast<int>(values.values.size()) - 1;
  return number && *number >= 1 && *number <= last ? &values.values[static_cast<std::size_t>(*number)] : nullptr;
}

Result<void> takeValue(LetterCommand& command, std::string_view argument) {
  const std::size_t equals = argument.find('=');
  if (equals == std::string_view::npos)
    return wrong("\"" + std::string(argument) + "\" is no SLOT=VALUE.");
  const std::string_view name = argument.substr(0, equals);
  const std::string value = unescaped(argument.substr(equals + 1));
  if (name == "counter") {
    const auto counter = wholeNumber(value);
    if (!counter)
      return wrong("The counter is a whole number, not \"" + value + "\".");
    command.values.counter = *counter;
    return {};
  }
  std::string* slot = slotNamed(command.values, name);
  if (!slot)
    return wrong("A letter has no slot \"" + std::string(name) + "\".");
  *slot = value;
  return {};
}

Result<void> takeOption(LetterCommand& command, std::string_view option, const std::string& value) {
  if (option == "--program-folder") {
    command.programFolder = value;
    return {};
  }
  if (option != "--now")
    return wrong("There is no option " + std::string(option) + ".");
  command.now = parseDateTime(value);
  if (!command.now)
    return wrong("\"" + value + "\" is no date and time as mm/dd/yyyy hh:mm.");
  return {};
}

Result<LetterCommand> mergeCommand(LetterCommand command, const Arguments& arguments) {
  for (std::size_t i = 3; i < arguments.size(); ++i) {
    const bool isOption = arguments[i].starts_with("--");
    if (isOption && i + 1 == arguments.size())
      return wrong(arguments[i] + " needs a value behind it.");
    const auto taken =
        isOption ? takeOption(command, arguments[i], arguments[i + 1]) : takeValue(command, arguments[i]);
    if (!taken)
      return taken.error();
    i += isOption ? 1 : 0;
  }
  return command;
}

std::optional<LetterTask> taskNamed(std::string_view name) {
  static const std::unordered_map<std::string_view, LetterTask> tasks = {
      {"text", LetterTask::Text}, {"merge", LetterTask::Merge}, {"pdf", LetterTask::Pdf}, {"--help", LetterTask::Help}};
  const auto found = tasks.find(name);
  return found == tasks.end() ? std::nullopt : std::optional(found->second);
}

}  // namespace

Result<LetterCommand> letterCommand(std::span<const char* const> given) {
  const Arguments arguments(given.begin(), given.end());
  if (arguments.empty())
    return wrong("Say what is to be done with which letter.");
  const auto task = taskNamed(arguments[0]);
  if (!task)
    return wrong("\"" + arguments[0] + "\" is nothing that can be done with a letter.");
  LetterCommand command;
  command.task = *task;
  if (*task == LetterTask::Help)
    return command;
  const std::size_t files = *task == LetterTask::Text ? 1 : 2;
  if (arguments.size() < 1 + files)
    return wrong(files == 1 ? "Name the letter." : "Name the letter, and the file that is to be made of it.");
  command.file = arguments[1];
  command.out = files == 2 ? arguments[2] : "";
  if (*task == LetterTask::Merge)
    return mergeCommand(std::move(command), arguments);
  if (arguments.size() > 1 + files)
    return wrong("\"" + arguments[1 + files] + "\" is one argument too many.");
  return command;
}

}  // namespace zelvo
