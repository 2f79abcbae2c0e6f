#include "form/ports.h"

#include <algorithm>

namespace zelvo {

std::vector<Answer> answersOf(Buttons buttons) {
  switch (buttons) {
    case Buttons::OKCancel:
      return {Answer::OK, Answer::Cancel};
    case Buttons::YesNo:
      return {Answer::Yes, Answer::No};
    case Buttons::YesNoCancel:
      return {Answer::Yes, Answer::No, Answer::Cancel};
    case Buttons::OK:
      break;
  }
  return {Answer::OK};
}

std::string_view nameOf(Answer answer) {
  switch (answer) {
    case Answer::Cancel:
      return "Cancel";
    case Answer::Yes:
      return "Yes";
    case Answer::No:
      return "No";
    case Answer::OK:
      break;
  }
  return "OK";
}

Answer presetOf(const MessageBox& box) {
  const auto answers = answersOf(box.buttons);
  const bool has = std::find(answers.begin(), answers.end(), box.preset) != answers.end();
  return has ? box.preset : answers.front();
}

void Messages::tell(std::string_view title, std::string_view text, Icon icon) {
  ask({std::string(title), std::string(text), Buttons::OK, icon, Answer::OK});
}

bool Messages::confirm(std::string_view title, std::string_view text, Icon icon, Answer preset) {
  return ask({std::string(title), std::string(text), Buttons::YesNo, icon, preset}) == Answer::Yes;
}

}  // namespace zelvo
