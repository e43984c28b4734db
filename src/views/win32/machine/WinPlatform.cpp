#include "views/win32/machine/WinPlatform.h"

#include <windows.h>
// (the shell needs the line above)
#include <shellapi.h>

#include "platform/Clock.h"
#include "platform/WideText_win32.h"
#include "views/shared/pictures/PictureFile.h"
#include "views/win32/machine/FileDialog.h"
#include "views/win32/machine/OthersDisabled.h"
#include "views/win32/windows/FailureBox.h"

namespace korvane::win32 {
namespace {

constexpr const wchar_t* kTitle = L"Korvane";
constexpr wchar_t kLastLatin = 255;

char separator(LCTYPE which, char other) {
  wchar_t text[8] = {};
  GetLocaleInfoW(LOCALE_USER_DEFAULT, which, text, 8);
  return text[0] == 0 || text[0] > kLastLatin ? other : static_cast<char>(text[0]);
}

}  // namespace

WinPlatform::WinPlatform() = default;
WinPlatform::~WinPlatform() = default;

void WinPlatform::messageBox(const std::string& text) {
  const OthersDisabled others;
  MessageBoxW(others.owner(), toWide(text).c_str(), kTitle, MB_OK);
}

std::optional<std::string> WinPlatform::askFile(const FileQuestion& question) {
  const OthersDisabled others;
  return chooseFile(question, others.owner());
}

Raster WinPlatform::loadPicture(const std::string& path) { return readPicture(path); }

std::int64_t WinPlatform::timeOfDay() { return machineClock().timeOfDay(); }

NumberFormat WinPlatform::numberFormat() {
  const NumberFormat plain;
  return {separator(LOCALE_SDECIMAL, plain.decimal), separator(LOCALE_STHOUSAND, plain.thousands)};
}

void WinPlatform::openPage(const std::string& address) {
  ShellExecuteW(nullptr, L"open", toWide(address).c_str(), nullptr, nullptr, SW_SHOWNORMAL);
}

void WinPlatform::failed(const Failure& failure) {
  if (failure.number == kCancelled) return;
  if (failureBox_ && failureBox_->repeated(failure.what())) return;
  failureBox_ = nullptr;
  failureBox_ = std::make_unique<FailureBox>(*this, failure.what());
}

}  // namespace korvane::win32
