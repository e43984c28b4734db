#include "commands/Operations.h"

namespace korvane {
namespace {

Json toJson(const ModuleInfo& info) {
  const auto flag = [](Boolean value) { return static_cast<bool>(value); };
  return Json::array({info.identity, info.name, info.description, info.author, info.number5,
                      flag(info.flag6), info.number7, info.toolName, info.tool->name(),
                      info.number10, info.number11, flag(info.flag12), flag(info.flag13),
                      info.messages});
}

/// An operation without arguments.
template <class Object, class Result>
Operation plain(const char* name, Object& object, Result (Object::*member)()) {
  return {name, "", [&object, member](const Arguments&) -> Json {
            if constexpr (std::is_void_v<Result>) {
              (object.*member)();
              return nullptr;
            } else {
              return (object.*member)();
            }
          }};
}

std::vector<Operation> ofClass(clsTharnPlugIn& plugIn, Host& host) {
  using Class = clsTharnPlugIn;
  return {
      {"PluginName", "", [&](const Arguments&) { return plugIn.PluginName(); }},
      {"ITharnModule_ModuleInfo", "",
       [&](const Arguments&) { return toJson(plugIn.ITharnModule_ModuleInfo()); }},
      {"ITharnPlugin_Init", "TITLE FILENAME",
       [&](const Arguments& a) { return plugIn.ITharnPlugin_Init(a.text(0), a.text(1), host); }},
      plain("ITharnPlugin_Configure", plugIn, &Class::ITharnPlugin_Configure),
      plain("ITharnPlugin_Enable", plugIn, &Class::ITharnPlugin_Enable),
      plain("ITharnPlugin_Disable", plugIn, &Class::ITharnPlugin_Disable),
      plain("ITharnPlugin_Term", plugIn, &Class::ITharnPlugin_Term),
      {"ITharnPlugin_PluginName", "",
       [&](const Arguments&) { return plugIn.ITharnPlugin_PluginName(); }},
      {kMessageHandle, "MSG ARG1 ARG2",
       [&](const Arguments& a) {
         return plugIn.ITharnPlugin_MessageHandle(a.integer(0, "MSG"), a.integer(1, "ARG1"),
                                                  a.integer(2, "ARG2"));
       }},
  };
}

std::vector<Operation> ofTool(MatrixForm& tool) {
  return {
      plain("ITharnTool_AskToSaveProjectData", tool, &MatrixForm::ITharnTool_AskToSaveProjectData),
      plain("ITharnTool_ClearProjectData", tool, &MatrixForm::ITharnTool_ClearProjectData),
      plain("ITharnTool_LoadProjectData", tool, &MatrixForm::ITharnTool_LoadProjectData),
      plain("ITharnTool_SaveProjectData", tool, &MatrixForm::ITharnTool_SaveProjectData),
      {"ITharnTool_ViewMode", "VALUE",
       [&](const Arguments& a) -> Json {
         tool.ITharnTool_ViewMode(a.integer(0, "VALUE"));
         return nullptr;
       }},
  };
}

}  // namespace

std::vector<Operation> operationsOf(Plugin& plugin, Host& host) {
  std::vector<Operation> all = ofClass(plugin.plugIn, host);
  for (Operation& operation : ofTool(plugin.matrixForm)) all.push_back(std::move(operation));
  return all;
}

}  // namespace korvane
