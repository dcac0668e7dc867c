// The platform that tests see through.
#include "toolkitfactory.h"

#include <algorithm>

namespace VSTGUI {
void setPlatformFactory(PlatformFactoryPtr&& f);  // the toolkit's own, in none of its headers
}

using namespace VSTGUI;

namespace toolkitdouble {
namespace {

class OptionMenu final : public IPlatformOptionMenu {
 public:
  explicit OptionMenu(Record& r) : record(r) {}
  void popup(COptionMenu* menu, const Callback& callback) override {
    const int chosen = record.menuUser();
    callback(menu, {chosen >= 0 ? menu : nullptr, chosen});
  }

 private:
  Record& record;
};

class Frame final : public IPlatformFrame {
 public:
  Frame(IPlatformFrameCallback* callback, Record& r) : IPlatformFrame(callback), record(r) {}

  bool getGlobalPosition(CPoint&) const override { return false; }
  bool setSize(const CRect&) override { return true; }
  bool getSize(CRect&) const override { return false; }
  bool getCurrentMousePosition(CPoint&) const override { return false; }
  bool getCurrentMouseButtons(CButtonState&) const override { return false; }
  bool getCurrentModifiers(Modifiers&) const override { return false; }
  bool setMouseCursor(CCursorType) override { return true; }
  bool invalidRect(const CRect&) override { return true; }
  bool scrollRect(const CRect&, const CPoint&) override { return false; }
  bool showTooltip(const CRect&, const char*) override { return false; }
  bool hideTooltip() override { return false; }
  void* getPlatformRepresentation() const override { return nullptr; }
  SharedPointer<IPlatformTextEdit> createPlatformTextEdit(IPlatformTextEditCallback*) override {
    return nullptr;
  }
  SharedPointer<IPlatformOptionMenu> createPlatformOptionMenu() override {
    return makeOwned<OptionMenu>(record);
  }
#if VSTGUI_OPENGL_SUPPORT
  SharedPointer<IPlatformOpenGLView> createPlatformOpenGLView() override {
    return nullptr;
  }
#endif
  SharedPointer<IPlatformViewLayer> createPlatformViewLayer(IPlatformViewLayerDelegate*,
                                                            IPlatformViewLayer*) override {
    return nullptr;
  }
#if VSTGUI_ENABLE_DEPRECATED_METHODS
  DragResult doDrag(IDataPackage*, const CPoint&, CBitmap*) override {
    return kDragError;
  }
#endif
  bool doDrag(const DragDescription&, const SharedPointer<IDragCallback>&) override {
    return false;
  }
  PlatformType getPlatformType() const override {
    return PlatformType::kNSView;
  }
  void onFrameClosed() override {
    ++record.framesClosed;
  }
  Optional<UTF8String> convertCurrentKeyEventToText() override {
    return {};
  }
  bool setupGenericOptionMenu(bool, GenericOptionMenuTheme*) override {
    return false;
  }

 private:
  Record& record;
};

class Timer final : public IPlatformTimer {
 public:
  Timer(IPlatformTimerCallback* c, Record& r) : callback(c), record(r) {}
  ~Timer() override { stop(); }
  bool start(uint32_t) override {
    record.timers.push_back(callback);
    return true;
  }
  bool stop() override { return std::erase(record.timers, callback) > 0; }

 private:
  IPlatformTimerCallback* callback;
  Record& record;
};

class FileSelector final : public IPlatformFileSelector {
 public:
  explicit FileSelector(Record& r) : record(r) {}
  bool run(const PlatformFileSelectorConfig& config) override {
    ++record.selectorsRun;
    record.selectorConfig = config;
    std::vector<UTF8String> files;
    for (const auto& file : record.user()) files.emplace_back(file);
    if (record.cancelled) files.clear();
    config.doneCallback(std::move(files));
    return true;
  }
  bool cancel() override {
    record.cancelled = true;
    return true;
  }

 private:
  Record& record;
};

class Factory final : public IPlatformFactory {
 public:
  explicit Factory(Record& r) : record(r) {}

  uint64_t getTicks() const noexcept override { return 0; }
  PlatformFramePtr createFrame(IPlatformFrameCallback* frame, const CRect&, void* parent,
                               PlatformType type, IPlatformFrameConfig*) const noexcept override {
    record.frameParent = parent;
    record.frameType = type;
    if (record.refusesFrames) return nullptr;
    return makeOwned<Frame>(frame, record);
  }
  PlatformTimerPtr createTimer(IPlatformTimerCallback* callback) const noexcept override {
    return makeOwned<Timer>(callback, record);
  }
  PlatformFileSelectorPtr createFileSelector(PlatformFileSelectorStyle style,
                                             IPlatformFrame*) const noexcept override {
    record.selectorStyle = style;
    return record.hasFileSelector ? std::make_shared<FileSelector>(record) : nullptr;
  }

  PlatformFontPtr createFont(const UTF8String&, const CCoord&,
                             const int32_t&) const noexcept override {
    return nullptr;
  }
  bool getAllFontFamilies(const FontFamilyCallback&) const noexcept override { return false; }
  PlatformBitmapPtr createBitmap(const CPoint&) const noexcept override { return nullptr; }
  PlatformBitmapPtr createBitmap(const CResourceDescription&) const noexcept override {
    return nullptr;
  }
  PlatformBitmapPtr createBitmapFromPath(UTF8StringPtr) const noexcept override { return nullptr; }
  PlatformBitmapPtr createBitmapFromMemory(const void*, uint32_t) const noexcept override {
    return nullptr;
  }
  PNGBitmapBuffer createBitmapMemoryPNGRepresentation(
      const PlatformBitmapPtr&) const noexcept override {
    return {};
  }
  PlatformResourceInputStreamPtr createResourceInputStream(
      const CResourceDescription&) const noexcept override {
    return nullptr;
  }
  PlatformStringPtr createString(UTF8StringPtr) const noexcept override { return nullptr; }
  bool setClipboard(const DataPackagePtr&) const noexcept override { return false; }
  DataPackagePtr getClipboard() const noexcept override { return nullptr; }
  PlatformGradientPtr createGradient() const noexcept override { return nullptr; }
  const IPlatformGraphicsDeviceFactory& getGraphicsDeviceFactory() const noexcept override {
    std::abort();
  }
  const LinuxFactory* asLinuxFactory() const noexcept override { return nullptr; }
  const MacFactory* asMacFactory() const noexcept override { return nullptr; }
  const Win32Factory* asWin32Factory() const noexcept override { return nullptr; }

 private:
  Record& record;
};

}  // namespace

Toolkit::Toolkit() {
  setPlatformFactory(std::make_unique<Factory>(record));
  CFontDesc::init();
}

Toolkit::~Toolkit() {
  CFontDesc::cleanup();
  setPlatformFactory(nullptr);
}

void Toolkit::fireTimers() {
  const auto due = record.timers;
  for (auto* timer : due) timer->fire();
}

}  // namespace toolkitdouble
