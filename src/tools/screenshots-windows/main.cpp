// Takes the pictures of the native windows: korvane-win-screenshots FOLDER
// The main window with a show, and every other window, as bmp files.

#include <windows.h>

#include <cstdio>
#include <fstream>
#include <set>
#include <vector>

#include "generators/image/MxImageForm.h"
#include "tools/demo/DemoShow.h"
#include "views/win32/View.h"
#include "views/win32/machine/WinPlatform.h"

namespace {

using namespace korvane;

constexpr int kSettleMilliseconds = 60;
constexpr int kShowMilliseconds = 600;  // how long the show runs before its picture is taken
constexpr int kDialogs = 9;

// A file dialog or a message box must not stop the pictures.
class SilentPlatform : public win32::WinPlatform {
 public:
  void messageBox(const std::string&) override {}
  std::optional<std::string> askFile(const FileQuestion&) override { return std::nullopt; }
};

// The pixels of a window, without its frame.
class Picture {
 public:
  explicit Picture(HWND window) {
    RECT area;
    GetClientRect(window, &area);
    const HDC from = GetDC(window);
    const HDC to = CreateCompatibleDC(from);
    const HBITMAP bitmap = CreateCompatibleBitmap(from, area.right, area.bottom);
    const HGDIOBJ before = SelectObject(to, bitmap);
    BitBlt(to, 0, 0, area.right, area.bottom, from, 0, 0, SRCCOPY);
    SelectObject(to, before);
    header_ = {sizeof header_, area.right, -area.bottom, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    pixels_.resize(static_cast<std::size_t>(area.right) * static_cast<std::size_t>(area.bottom));
    BITMAPINFO info{header_, {}};
    GetDIBits(to, bitmap, 0, static_cast<UINT>(area.bottom), pixels_.data(), &info, DIB_RGB_COLORS);
    DeleteObject(bitmap);
    DeleteDC(to);
    ReleaseDC(window, from);
  }

  bool save(const std::string& path) const {
    const auto bytes = static_cast<DWORD>(pixels_.size() * 4);
    const DWORD offset = sizeof(BITMAPFILEHEADER) + sizeof header_;
    const BITMAPFILEHEADER file{0x4D42, offset + bytes, 0, 0, offset};
    std::ofstream stream(path, std::ios::binary);
    stream.write(reinterpret_cast<const char*>(&file), sizeof file);
    stream.write(reinterpret_cast<const char*>(&header_), sizeof header_);
    stream.write(reinterpret_cast<const char*>(pixels_.data()), bytes);
    return stream.good();
  }

 private:
  BITMAPINFOHEADER header_{};
  std::vector<DWORD> pixels_;
};

class Photographer {
 public:
  explicit Photographer(std::string folder) : folder_(std::move(folder)) {
    run([this] { plugin_.plugIn.ITharnPlugin_Init("", "", host_); });
  }

  int takeAll() {
    run([this] { plugin_.engine.desktop.show(plugin_.matrixForm); });
    show_.make();
    settle(kShowMilliseconds);
    save(plugin_.matrixForm, "main-window");
    taken_.insert(plugin_.matrixForm.name());
    for (int row = 0; row < kDialogs; ++row) takeDialog(row);
    show_.mixOrange();
    for (Form* form : plugin_.engine.desktop.forms()) takeForm(*form);
    return failed_ ? 1 : 0;
  }

 private:
  void run(const std::function<void()>& step) { view_.gate.run(step); }

  void takeDialog(int row) {
    Form* dialog = show_.openDialog(row);
    if (dialog == nullptr) return;
    save(*dialog, dialog->name());
    if (dialog == &plugin_.window<MxImageForm>()) takeImageList();
    run([&] { plugin_.engine.desktop.close(*dialog); });
  }

  void takeImageList() {
    Form& list = show_.openImageList();
    save(list, list.name());
    run([&] { plugin_.engine.desktop.close(list); });
  }

  void takeForm(Form& form) {
    if (taken_.count(form.name()) != 0) return;
    run([&] { plugin_.engine.desktop.show(form); });
    save(form, form.name());
    run([&] { plugin_.engine.desktop.hide(form); });
  }

  static void settle(int milliseconds) {
    const ULONGLONG end = GetTickCount64() + static_cast<ULONGLONG>(milliseconds);
    while (GetTickCount64() < end) {
      MSG message;
      while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
      }
      MsgWaitForMultipleObjects(0, nullptr, FALSE, 5, QS_ALLINPUT);
    }
  }

  void save(Form& form, const std::string& name) {
    settle(kSettleMilliseconds);
    const HWND window = view_.desktop.window(form).window();
    RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    const std::string path = folder_ + "/" + name + ".bmp";
    if (!Picture(window).save(path)) {
      std::fprintf(stderr, "korvane-win-screenshots: cannot write %s\n", path.c_str());
      failed_ = true;
    }
    taken_.insert(name);
  }

  std::string folder_;
  std::set<std::string> taken_;
  bool failed_ = false;
  SilentPlatform platform_;
  SilentHost host_;
  Plugin plugin_{platform_};
  win32::WinView view_{plugin_.engine};
  DemoShow show_{plugin_, [this](const std::function<void()>& step) { run(step); }};
};

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: korvane-win-screenshots FOLDER\n");
    return 2;
  }
  return Photographer(argv[1]).takeAll();
}
