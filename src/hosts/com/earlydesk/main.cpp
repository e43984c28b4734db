// A lighting desk that is compiled against the component's interfaces. It carries out a file of
// console commands: the desk's own with its own calls, all others by the tool's Run, and answers
// each as the console does. In the end nothing of the component may be left.
//   korvane-early-desk BASEFILENAME COMMANDS

#include <ole2.h>
#include <wrl/client.h>

#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>

#include "hosts/com/FakeObject.h"
#include "hosts/com/Korvane_h.h"
#include "hosts/com/WideText.h"

namespace korvane {
namespace {

using Microsoft::WRL::ComPtr;

void require(bool right, const std::string& what) {
  if (right) return;
  std::cout << "FAIL " << what << std::endl;
  std::exit(1);
}

void require(HRESULT result, const std::string& what) {
  require(result == S_OK, what + " answered " + std::to_string(result));
}

/// A text for the component or from it.
struct Text {
  ~Text() { SysFreeString(value); }
  BSTR value = nullptr;
};

std::string flag(VARIANT_BOOL value) { return value == VARIANT_FALSE ? "false" : "true"; }

std::string result(const std::string& value) { return R"({"ok":true,"result":)" + value + "}"; }

/// "SetChannel 1 255" as the console shows it: ["SetChannel",1,255].
std::string shown(const std::string& call) {
  std::istringstream words(call);
  std::string word;
  words >> word;
  std::string text = "[\"" + word + "\"";
  while (words >> word) text += "," + word;
  return text + "]";
}

class EarlyDesk {
 public:
  explicit EarlyDesk(const std::filesystem::path& base) {
    desk_.project.set(L"Name", text(base.filename().wstring()));
    desk_.project.set(L"BaseFilename", text(base.wstring()));
    CLSID clsid{};
    require(CLSIDFromProgID(L"Korvane.clsTharnPlugIn", &clsid), "CLSIDFromProgID");
    require(CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&plugIn_)),
            "CoCreateInstance");
    takeTool();
    init();
    require(tool_->Show(), "Show");
  }

  std::string answer(const std::string& line) {
    std::istringstream words(line);
    std::string command;
    words >> command;
    if (command == "open") {
      require(tool_->Show(), "Show");
      return R"({"ok":true})";
    }
    if (command == "beat") return message(9, 0);
    if (command == "message") {
      long number = 0;
      long arg1 = 0;
      words >> number >> arg1;
      return message(number, arg1);
    }
    if (command == "calls") return calls(line);
    if (command == "call") return ownCall(line, words);
    return run(line);
  }

  /// Lets go of everything.
  void end() {
    require(tool_->Hide(), "Hide");
    tool_.Reset();
    plugIn_.Reset();
    require(desk_.references() == 0, "the component keeps objects of the desk");
    const auto unloadable = reinterpret_cast<HRESULT(WINAPI*)()>(reinterpret_cast<void*>(
        GetProcAddress(GetModuleHandleW(L"Korvane.dll"), "DllCanUnloadNow")));
    require(unloadable(), "DllCanUnloadNow");
  }

 private:
  void takeTool() {
    ComPtr<::ITharnModule> module;
    ComPtr<IModuleInfo> info;
    ComPtr<::ITharnTool> tool;
    require(plugIn_.As(&module), "ITharnModule");
    require(module->ITharnModule_ModuleInfo(&info), "ITharnModule_ModuleInfo");
    require(info->get_Tool(&tool), "Tool");
    require(tool.As(&tool_), "IToolWindow");
  }

  void init() {
    Text title{toBstr("early-bound desk")};
    Text filename{toBstr("Korvane.dll")};
    IDispatch* helper = &desk_.helper;
    VARIANT_BOOL done = VARIANT_FALSE;
    require(plugIn_->ITharnPlugin_Init(&title.value, &filename.value, &helper, &done),
            "ITharnPlugin_Init");
    require(done == VARIANT_TRUE, "ITharnPlugin_Init is not true");
  }

  std::string run(const std::string& line) {
    Text command{toBstr(line)};
    Text reply;
    require(tool_->Run(command.value, &reply.value), "Run");
    return fromBstr(reply.value);
  }

  std::string message(long number, long arg1) {
    long arg2 = 0;
    long answer = -1;
    require(plugIn_->ITharnPlugin_MessageHandle(&number, &arg1, &arg2, &answer),
            "ITharnPlugin_MessageHandle");
    return result(std::to_string(answer));
  }

  /// The calls that the desk got since the last time.
  std::string calls(const std::string& line) {
    std::string all;
    for (const std::string& call : desk_.calls) all += (all.empty() ? "" : ",") + shown(call);
    desk_.calls.clear();
    std::string got = R"({"ok":true,"calls":[)" + all + "]}";
    require(got == run(line), "Run tells other calls than the desk got");
    return got;
  }

  /// Calls of the desk's own; what a person must answer is left to Run.
  std::string ownCall(const std::string& line, std::istringstream& words) {
    std::string name;
    words >> name;
    VARIANT_BOOL answer = VARIANT_FALSE;
    ComPtr<::ITharnTool> tool;
    require(tool_.As(&tool), "ITharnTool");
    if (name == "ITharnPlugin_Enable") {
      require(plugIn_->ITharnPlugin_Enable(&answer), name);
    } else if (name == "ITharnPlugin_Disable") {
      require(plugIn_->ITharnPlugin_Disable(&answer), name);
    } else if (name == "ITharnTool_AskToSaveProjectData") {
      require(tool->ITharnTool_AskToSaveProjectData(&answer), name);
    } else if (name == "ITharnTool_ViewMode") {
      long mode = 0;
      words >> mode;
      require(tool->put_ITharnTool_ViewMode(mode), name);
      return result("null");
    } else {
      return run(line);
    }
    return result(flag(answer));
  }

  FakeDesk desk_;
  ComPtr<::ITharnPlugin> plugIn_;
  ComPtr<IToolWindow> tool_;
};

void play(const wchar_t* base, const wchar_t* commands) {
  EarlyDesk desk(base);
  std::ifstream file{std::filesystem::path(commands)};
  require(file.good(), "the commands can't be read");
  for (std::string line; std::getline(file, line);) {
    const std::string answer = desk.answer(line);
    if (!answer.empty()) std::cout << answer << '\n';
  }
  desk.end();
}

}  // namespace
}  // namespace korvane

int wmain(int count, wchar_t** arguments) {
  korvane::require(count == 3, "usage: korvane-early-desk BASEFILENAME COMMANDS");
  korvane::require(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), "CoInitializeEx");
  korvane::play(arguments[1], arguments[2]);
  CoUninitialize();
  return 0;
}
