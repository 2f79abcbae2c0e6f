#include "console/console_ports.h"

#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <vector>

#include <pwd.h>
#include <unistd.h>

#include "base/files.h"
#include "base/number.h"
#include "base/text.h"

namespace zelvo {

namespace {

constexpr std::string_view kDefault = " (default)";

std::string described(const MessageBox& box) {
  std::vector<std::string> buttons;
  for (const Answer button : answersOf(box.buttons))
    buttons.emplace_back(nameOf(button));
  return "[" + box.title + "] " + box.text + " {" + join(buttons, ", ") + "}";
}

std::optional<Answer> buttonOf(const MessageBox& box, std::string_view answer) {
  for (const Answer button : answersOf(box.buttons))
    if (alike(nameOf(button), trim(answer)))
      return button;
  return std::nullopt;
}

// Of the buttons, the one that begins nothing: Cancel, else No, else the only one there is.
Answer declined(const MessageBox& box) {
  const auto buttons = answersOf(box.buttons);
  for (const Answer button : {Answer::Cancel, Answer::No})
    if (std::find(buttons.begin(), buttons.end(), button) != buttons.end())
      return button;
  return buttons.front();
}

std::string inQuotes(std::string_view text) {
  return "\"" + std::string(text) + "\"";
}

std::string inFolder(std::string_view folder, std::string_view path) {
  if (folder.empty() || path.find_first_of("/\\") != std::string_view::npos)
    return std::string(path);
  return joinPath(folder, path);
}

// The number of a printed document: "0012.rtf" is 12; 0 for what someone else put there.
double numberOf(std::string_view fileName) {
  const std::string_view stem = fileName.substr(0, fileName.size() - 4);
  const bool ours = stem.size() < 10 && stem.find_first_not_of("0123456789") == std::string_view::npos;
  return ours ? Val(stem) : 0;
}

bool isButton(std::string_view answer) {
  return alike(answer, "OK") || alike(answer, "Yes") || alike(answer, "No");
}

}  // namespace

Answer ConsoleMessages::ask(const MessageBox& box) {
  if (talk_.over())
    return declined(box);
  const auto answer = talk_.takeAnswer();
  const auto button = answer ? buttonOf(box, *answer) : presetOf(box);
  if (!button) {
    talk_.fail("the answer " + inQuotes(*answer) + " fits no button of the message " + described(box));
    return declined(box);
  }
  talk_.say("message: " + described(box) + " -> " + std::string(nameOf(*button)) + std::string(answer ? "" : kDefault));
  return *button;
}

std::optional<std::string> ConsolePickers::openFile(const FilePicker& picker) {
  return pick(picker.title, picker.folder, "");
}

std::optional<std::string> ConsolePickers::saveFile(const FilePicker& picker, std::string_view proposed) {
  return pick(picker.title, picker.folder, proposed);
}

std::optional<std::string> ConsolePickers::folder(std::string_view title, std::string_view start) {
  return pick(title, "", start);
}

std::optional<std::string> ConsolePickers::pick(std::string_view title, std::string_view folder,
                                                std::string_view proposed) {
  if (talk_.over())
    return std::nullopt;
  const std::string head = "picker: [" + std::string(title) + "] -> ";
  const auto answer = talk_.takeAnswer();
  const std::string given(trim(answer.value_or("Cancel")));
  if (alike(given, "Cancel")) {
    talk_.say(head + "Cancel" + std::string(answer ? "" : kDefault));
    return std::nullopt;
  }
  const bool takesProposed = alike(given, "OK") && !proposed.empty();
  if (isButton(given) && !takesProposed) {
    talk_.fail("the answer " + inQuotes(given) + " is no path for the picker [" + std::string(title) + "]");
    return std::nullopt;
  }
  const std::string path = inFolder(folder, takesProposed ? proposed : given);
  talk_.say(head + path);
  return path;
}

Result<void> ConsolePrinting::print(const PrintJob& job) {
  if (talk_.over())
    return Error{Trouble::Cancelled, "Nothing is printed any more: the program is ending."};
  if (auto made = makeFolder(folder_); !made)
    return made;
  const std::string file = nextFile();
  if (auto copied = copyFile(job.rtfPath, file); !copied)
    return copied;
  talk_.say("printed: " + job.title + " -> " + file);
  return {};
}

bool ConsolePrinting::choosePrinter(PrintOptions& options) {
  if (talk_.over())
    return false;
  const auto answer = talk_.takeAnswer();
  const std::string given(trim(answer.value_or("OK")));
  const bool cancelled = alike(given, "Cancel");
  if (!cancelled && !alike(given, "OK"))
    options.printer = given;
  talk_.say("picker: [Print] -> " + given + std::string(answer ? "" : kDefault));
  return !cancelled;
}

Result<PrintedCopy> ConsolePrinting::copyOf(const PrintJob& job) {
  const auto rtf = readBytes(job.rtfPath);
  if (!rtf)
    return rtf.error();
  return PrintedCopy{*rtf, ".rtf"};
}

Result<int> ConsolePrinting::countPages(const PrintJob&) {
  return Error{Trouble::NotFound, "The console makes no pages. The document can be printed."};
}

std::string ConsolePrinting::nextFile() const {
  double last = 0;
  for (const std::string& name : listFiles(folder_, "*.rtf"))
    last = std::max(last, numberOf(name));
  return joinPath(folder_, numberPicture(last + 1, "0000") + ".rtf");
}

std::optional<std::string> ConsoleDesktop::networkUser() {
  const passwd* user = ::getpwuid(::getuid());
  if (user == nullptr || *user->pw_name == '\0')
    return std::nullopt;
  return user->pw_name;
}

std::string ConsoleDesktop::temporaryFolder() {
  std::error_code none;
  const auto folder = std::filesystem::temp_directory_path(none);
  return none ? "/tmp" : withoutEndSeparator(folder.string());
}

// On a computer without a desktop the console itself stands in for the browser. It is only named in the line that is
// said, never started; and a document must not end an unattended run merely because nobody can look at it there.
std::optional<std::string> ConsoleDesktop::programFor(std::string_view) {
  const char* path = std::getenv("PATH");
  for (const std::string& folder : split(path ? path : "", ':'))
    if (const std::string opener = folder + "/xdg-open"; !folder.empty() && ::access(opener.c_str(), X_OK) == 0)
      return opener;
  std::error_code none;
  const auto itself = std::filesystem::read_symlink("/proc/self/exe", none);
  return none ? "/bin/sh" : itself.string();
}

Result<void> ConsoleDesktop::start(std::string_view commandLine) {
  talk_.say("opened: " + std::string(commandLine));
  return {};
}

DateTime ConsoleClock::now() {
  if (fixed_)
    return *fixed_;
  const std::time_t moment = std::time(nullptr);
  std::tm local{};
  ::localtime_r(&moment, &local);
  return {{local.tm_year + 1900, local.tm_mon + 1, local.tm_mday},
          local.tm_hour * 3600 + local.tm_min * 60 + std::min(local.tm_sec, 59)};
}

}  // namespace zelvo
