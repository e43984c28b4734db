#include "views/win32/kinds/Binder.h"

#include "views/win32/testing/ShownForm.h"

namespace korvane::win32 {
namespace {

class Binders : public ShownForm {};

TEST_F(Binders, FollowTheLookOfTheControl) {
  auto& button = make<Button>("go", Look{.caption = "Go"});
  auto& other = make<Button>("other", Look{.caption = "Other"});
  show({&button, &other});
  EXPECT_EQ(windowText(on(button)), L"Go");
  button.setCaption("Gehe über");
  EXPECT_EQ(windowText(on(button)), L"Gehe \u00FCber");
  button.setEnabled(false);
  EXPECT_FALSE(IsWindowEnabled(on(button)));
  button.setVisible(false);
  EXPECT_FALSE(IsWindowVisible(on(button)));
}

TEST_F(Binders, AScriptFindsTheWindowOfAControlByItsName) {
  auto& button = make<Button>("addA", Look{.caption = "+"});
  FormWindow& window = show({&button});
  EXPECT_EQ(GetPropW(on(button), L"Korvane.addA"), on(button));
  EXPECT_EQ(GetPropW(window.window(), L"Korvane.plain"), window.window());
}

TEST_F(Binders, ALongerCaptionWidensTheWindowsButton) {
  auto& button = make<Button>("go", Look{.caption = "Go"});
  show({&button});
  form->setLayout(row({Layout(button), space()}));
  const SIZE before = view->window(*form).widget(button)->wish().natural;
  button.setCaption("a caption of many words, which takes room");
  EXPECT_GT(view->window(*form).widget(button)->wish().natural.cx, before.cx + 50);
}

TEST_F(Binders, AButtonClicksOnceForEachWayOfPressing) {
  int clicks = 0;
  auto& button = make<Button>("go", Look{.caption = "Go"});
  button.onClick = [&clicks] { ++clicks; };
  show({&button});
  PostMessageW(on(button), BM_CLICK, 0, 0);
  pump();
  EXPECT_EQ(clicks, 1);
  clickAt(on(button), 5, 5);
  EXPECT_EQ(clicks, 2);
  press(on(button), VK_RETURN);
  EXPECT_EQ(clicks, 3);
  press(on(button), VK_SPACE);
  EXPECT_EQ(clicks, 4);
}

TEST_F(Binders, AFailureOfAClickIsReportedOnceAndTheWindowGoesOn) {
  auto& button = make<Button>("go", Look{.caption = "Go"});
  button.onClick = [] { throw Failure(kSubscript); };
  show({&button});
  clickAt(on(button), 5, 5);
  ASSERT_EQ(platform.failures.size(), 1U);
  EXPECT_EQ(platform.failures[0].number, kSubscript);
  clickAt(on(button), 5, 5);
  EXPECT_EQ(platform.failures.size(), 2U);
}

TEST_F(Binders, APictureButtonIsPressedByTheProgramAlone) {
  int clicks = 0;
  auto& button = make<PictureButton>("up", Icon::Up);
  button.onClick = [&clicks] { ++clicks; };
  show({&button});
  clickAt(on(button), 5, 5);
  EXPECT_EQ(clicks, 1);
  EXPECT_FALSE(button.pressed());
}

TEST_F(Binders, ACheckBoxShowsWhatItsHandlerMadeOfTheClick) {
  auto& kept = make<CheckBox>("kept", Look{.caption = "kept"});
  auto& refused = make<CheckBox>("refused", Look{.caption = "refused"});
  int events = 0;
  kept.onClick = [&events] { ++events; };
  refused.onClick = [&refused] { refused.setValue(0); };
  show({&kept, &refused});
  clickAt(on(kept), 5, 5);
  clickAt(on(refused), 5, 5);
  EXPECT_EQ(events, 1);
  EXPECT_EQ(SendMessageW(on(kept), BM_GETCHECK, 0, 0), BST_CHECKED);
  EXPECT_EQ(SendMessageW(on(refused), BM_GETCHECK, 0, 0), BST_UNCHECKED);
}

TEST_F(Binders, AColorBoxAndALabelAreClicked) {
  int clicks = 0;
  auto& box = make<ColorBox>("color", Look{}, rgb(255, 0, 0));
  auto& label = make<Label>("label", Look{.caption = "online help"});
  box.onClick = label.onClick = [&clicks] { ++clicks; };
  show({&box, &label});
  clickAt(on(box), 5, 5);
  clickAt(on(label), 5, 5);
  EXPECT_EQ(clicks, 2);
}

TEST_F(Binders, ADropDownListChoosesOnceForEachKey) {
  int events = 0;
  auto& list = make<ListBox>("type");
  list.setItems({"one", "two", "three"});
  list.setIndex(0);
  list.onClick = [&events] { ++events; };
  show({&list});
  EXPECT_EQ(SendMessageW(on(list), CB_GETCURSEL, 0, 0), 0);
  press(on(list), VK_DOWN);
  EXPECT_EQ(list.index(), 1);
  EXPECT_EQ(events, 1);
  list.setIndex(2);
  EXPECT_EQ(SendMessageW(on(list), CB_GETCURSEL, 0, 0), 2);
}

TEST_F(Binders, AnOpenedDropDownListChoosesWhenItCloses) {
  int events = 0;
  auto& list = make<ListBox>("type");
  list.setItems({"one", "two", "three"});
  list.setIndex(0);
  list.onClick = [&events] { ++events; };
  show({&list});
  SendMessageW(on(list), CB_SHOWDROPDOWN, TRUE, 0);
  press(on(list), VK_DOWN);
  press(on(list), VK_DOWN);
  EXPECT_EQ(events, 0);
  press(on(list), VK_RETURN);
  EXPECT_EQ(list.index(), 2);
  EXPECT_EQ(events, 1);
  SendMessageW(on(list), CB_SHOWDROPDOWN, TRUE, 0);
  press(on(list), VK_UP);
  press(on(list), VK_ESCAPE);
  EXPECT_EQ(list.index(), 2);
  EXPECT_EQ(events, 1);
}

TEST_F(Binders, AnOpenedDropDownListChoosesTheEntryThatItShows) {
  int events = 0;
  auto& list = make<ListBox>("type");
  list.setItems({"one", "two"});
  list.setIndex(1);
  list.onClick = [&events] { ++events; };
  show({&list});
  SendMessageW(on(list), CB_SHOWDROPDOWN, TRUE, 0);
  press(on(list), VK_RETURN);
  EXPECT_EQ(events, 1);
  press(on(list), VK_DOWN);  // there is no entry below
  EXPECT_EQ(events, 1);
  SendMessageW(on(list), CB_SHOWDROPDOWN, TRUE, 0);
  press(on(list), VK_UP);
  press(on(list), VK_RETURN);
  EXPECT_EQ(list.index(), 0);
  EXPECT_EQ(events, 2);
}

TEST_F(Binders, TheWheelChangesNoClosedList) {
  auto& list = make<ListBox>("type");
  list.setItems({"one", "two"});
  list.setIndex(0);
  show({&list});
  PostMessageW(on(list), WM_MOUSEWHEEL, MAKEWPARAM(0, -WHEEL_DELTA), 0);
  pump();
  EXPECT_EQ(list.index(), 0);
}

TEST_F(Binders, AnOpenListChooses) {
  auto& list = make<ListBox>("files", Look{}, ListBox::Style::Open);
  list.setItems({"one", "two"});
  show({&list});
  press(on(list), VK_DOWN);
  press(on(list), VK_DOWN);
  EXPECT_EQ(list.index(), 1);
  int events = 0;
  list.onClick = [&events] { ++events; };
  clickAt(on(list), 10, 5);
  EXPECT_EQ(list.index(), 0);
  EXPECT_EQ(events, 1);
  clickAt(on(list), 10, 5);
  EXPECT_EQ(events, 2) << "the entry that is shown";
}

TEST_F(Binders, ALiveTextBoxHandsOverEachKeystroke) {
  std::vector<std::string> texts;
  auto& box = make<TextBox>("name");
  box.onChange = [&] { texts.push_back(box.text()); };
  show({&box});
  SetFocus(on(box));
  type(on(box), L"a\u00FC");
  EXPECT_EQ(texts, (std::vector<std::string>{"a", "a\xC3\xBC"}));
}

TEST_F(Binders, ATextBoxThatRewritesItsTextTakesItOnEnterOrWhenItIsLeft) {
  auto& box =
      make<TextBox>("time", Look{}, "3", TextBoxStyle{.commit = TextBoxStyle::Commit::OnLeave});
  std::vector<int> keys;
  box.onKeyPress = [&keys](int key) { keys.push_back(key); };
  box.onChange = [&box] {
    if (box.text() == "7") box.setText("7.00");
  };
  auto& other = make<Button>("other", Look{.caption = "other"});
  show({&box, &other});
  SetFocus(on(box));
  SendMessageW(on(box), EM_SETSEL, 0, -1);
  type(on(box), L"7");
  EXPECT_EQ(box.text(), "3");
  press(on(box), VK_RETURN);
  EXPECT_EQ(keys, (std::vector<int>{13}));
  EXPECT_EQ(box.text(), "7.00");
  EXPECT_EQ(windowText(on(box)), toWide(box.text()));
}

TEST_F(Binders, APageKeepsItsLines) {
  auto& page = make<TextBox>("page", Look{}, "one\ntwo", TextBoxStyle{.lines = 4});
  show({&page});
  EXPECT_EQ(SendMessageW(on(page), EM_GETLINECOUNT, 0, 0), 2);
  EXPECT_EQ(page.text(), "one\ntwo");
}

}  // namespace
}  // namespace korvane::win32
