#include "shell/setting_values.h"

#include <algorithm>
#include <concepts>

#include "base/files.h"
#include "base/number.h"
#include "base/text.h"

namespace zelvo {

namespace {

using Kind = SettingLine::Kind;

template <class AnySession, class Value>
auto& valueOf(AnySession& session, Value Session::*member) {
  return session.*member;
}

template <class AnySession>
auto& valueOf(AnySession& session, std::string Municipality::*member) {
  return session.municipality.*member;
}

void take(std::string& value, std::string_view line, Kind kind) {
  if (kind == Kind::AsItStands)
    value = line;
  else if (kind == Kind::Choice)
    value = trim(line) == "F" ? "F" : "T";
  else
    value = kind == Kind::Folder ? withoutEndSeparator(trim(line)) : std::string(trim(line));
}

void take(int& value, std::string_view line, Kind) {
  value = CInt(Val(line));
}

void take(bool& value, std::string_view line, Kind) {
  value = Val(line) != 0;
}

// The colours of the desktop itself are negative numbers when they are read as signed.
void take(std::uint32_t& value, std::string_view line, Kind) {
  const double number = std::clamp(Val(line), -2147483648.0, 4294967295.0);
  value = static_cast<std::uint32_t>(static_cast<std::int64_t>(number));
}

std::string written(const std::string& value, Kind kind) {
  if (kind == Kind::Choice)
    return value == "F" ? "F" : "T";
  return withoutLineBreaks(kind == Kind::AsItStands ? std::string_view(value) : trim(value));
}

template <std::integral Number>
std::string written(Number value, Kind) {
  return std::to_string(value);
}

std::string written(bool value, Kind) {
  return value ? "1" : "0";
}

// Signed, as colours have always been written.
std::string written(std::uint32_t value, Kind) {
  return std::to_string(static_cast<std::int32_t>(value));
}

}  // namespace

std::string withoutLineBreaks(std::string_view text) {
  std::string line(text);
  std::replace_if(
      line.begin(), line.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
  return line;
}

void readLine(const SettingLine& setting, std::string_view line, Session& session) {
  if (setting.kind != Kind::Copy)
    std::visit([&](auto member) { take(valueOf(session, member), line, setting.kind); }, setting.member);
}

std::string writtenLine(const SettingLine& setting, const Session& session) {
  return std::visit([&](auto member) { return written(valueOf(session, member), setting.kind); }, setting.member);
}

void readPresets(const SettingFile& file, Session& session) {
  for (const SettingLine& setting : file.lines)
    readLine(setting, setting.preset, session);
}

}  // namespace zelvo
