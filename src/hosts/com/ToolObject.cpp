#include "hosts/com/ToolObject.h"

#include "hosts/com/DualObject.h"

namespace korvane {

class ToolObject : public DualObject<::ITharnTool, IToolWindow> {
 public:
  explicit ToolObject(const std::shared_ptr<Session>& session) : DualObject(session) {
    session->tool = this;
  }

  HRESULT STDMETHODCALLTYPE ITharnTool_AskToSaveProjectData(VARIANT_BOOL* result) override {
    return give(result, [this] { return form().ITharnTool_AskToSaveProjectData(); });
  }
  HRESULT STDMETHODCALLTYPE ITharnTool_ClearProjectData() override {
    return call([this] { form().ITharnTool_ClearProjectData(); });
  }
  HRESULT STDMETHODCALLTYPE ITharnTool_LoadProjectData() override {
    return call([this] { form().ITharnTool_LoadProjectData(); });
  }
  HRESULT STDMETHODCALLTYPE ITharnTool_SaveProjectData() override {
    return call([this] { form().ITharnTool_SaveProjectData(); });
  }
  HRESULT STDMETHODCALLTYPE put_ITharnTool_ViewMode(long mode) override {
    return call([&] { form().ITharnTool_ViewMode(mode); });
  }

  HRESULT STDMETHODCALLTYPE Show() override {
    return call([this] { desktop().show(form()); });
  }
  HRESULT STDMETHODCALLTYPE Hide() override {
    return call([this] { desktop().hide(form()); });
  }
  HRESULT STDMETHODCALLTYPE get_Visible(VARIANT_BOOL* result) override {
    return give(result, [this] { return form().visible(); });
  }
  HRESULT STDMETHODCALLTYPE put_Visible(VARIANT_BOOL visible) override {
    return visible == VARIANT_FALSE ? Hide() : Show();
  }
  HRESULT STDMETHODCALLTYPE get_Caption(BSTR* result) override {
    return give(result, [this] { return form().caption(); });
  }
  HRESULT STDMETHODCALLTYPE put_Caption(BSTR caption) override {
    return call([&] { form().setCaption(fromBstr(caption)); });
  }
  HRESULT STDMETHODCALLTYPE get_Width(long* result) override {
    return give(result, [this] { return form().width(); });
  }
  HRESULT STDMETHODCALLTYPE put_Width(long twips) override {
    return call([&] { form().setSize(twips, form().height()); });
  }
  HRESULT STDMETHODCALLTYPE get_Height(long* result) override {
    return give(result, [this] { return form().height(); });
  }
  HRESULT STDMETHODCALLTYPE put_Height(long twips) override {
    return call([&] { form().setSize(form().width(), twips); });
  }
  HRESULT STDMETHODCALLTYPE Run(BSTR command, BSTR* reply) override {
    return give(reply, [&] { return session()->run(fromBstr(command)); });
  }

 private:
  ~ToolObject() override { session()->tool = nullptr; }

  MatrixForm& form() { return session()->plugin().matrixForm; }
  Desktop& desktop() { return session()->plugin().engine.desktop; }
};

ComPtr<::ITharnTool> toolObject(const std::shared_ptr<Session>& session) {
  if (session->tool != nullptr) return session->tool;
  return make<ToolObject>(session);
}

}  // namespace korvane
