#include "desk/windows/DeskQuestion.h"

namespace korvane {

DeskQuestion::DeskQuestion(Desktop& desktop)
    : Form("DeskQuestion", "Korvane"),
      text("text"),
      first("first"),
      second("second"),
      third("third"),
      desktop_(desktop) {
  add({&text, &first, &second, &third});
  setLayout(column({text, row({space(), first, second, third})}));
  std::size_t index = 0;
  for (Button* button : {&first, &second, &third})
    button->onClick = [this, at = index++] { answer(at); };
  onEnter = [this] { answer(0); };
  onEscape = [this] { answer(answers_ - 1); };
  desktop.add(*this);
}

void DeskQuestion::ask(const std::string& question, const std::vector<std::string>& answers,
                       std::function<void(std::size_t)> then) {
  answers_ = answers.size();
  answer_ = answers_ - 1;
  text.setCaption(question);
  std::size_t index = 0;
  for (Button* button : {&first, &second, &third}) {
    button->setVisible(index < answers_);
    if (index < answers_) button->setCaption(answers[index]);
    ++index;
  }
  desktop_.showModal(*this, [this, then = std::move(then)] { then(answer_); });
}

void DeskQuestion::answer(std::size_t index) {
  answer_ = index;
  desktop_.hide(*this);
}

}  // namespace korvane
