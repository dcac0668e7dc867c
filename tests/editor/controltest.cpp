// Drives a frame without a window.
#include "controltest.h"

#include <filesystem>

#include "lib/platform/linux/linuxfactory.h"
#include "lib/platform/platformfactory.h"
#include "lib/vstguiinit.h"

// The font library keeps its configuration until the process ends.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() {
  return "leak:libfontconfig.so\n";
}

namespace controltest {

namespace {

// The toolkit as it comes, with none of its defaults replaced.
class Toolkit : public testing::Environment {
 public:
  void SetUp() override {
    VSTGUI::init(nullptr);
    const auto resources =
        std::filesystem::read_symlink("/proc/self/exe").parent_path().parent_path() / "Resources/";
    VSTGUI::getPlatformFactory().asLinuxFactory()->setResourcePath(resources.string());
  }
  void TearDown() override { VSTGUI::exit(); }
};

[[maybe_unused]] const testing::Environment* const toolkit =
    testing::AddGlobalTestEnvironment(new Toolkit);

VSTGUI::Modifiers modifiersOf(std::initializer_list<ModifierKey> keys) {
  VSTGUI::Modifiers modifiers;
  for (const ModifierKey modifier : keys) modifiers.add(modifier);
  return modifiers;
}

}  // namespace

VSTGUI::SharedPointer<VSTGUI::CBitmap> bitmapOf(int width, int height,
                                                const std::function<CColor(int, int)>& colourAt) {
  auto bitmap = VSTGUI::makeOwned<VSTGUI::CBitmap>(width, height);
  const auto access = VSTGUI::owned(VSTGUI::CBitmapPixelAccess::create(bitmap));
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      access->setPosition(static_cast<std::uint32_t>(x), static_cast<std::uint32_t>(y));
      access->setColor(colourAt(x, y));
    }
  }
  return bitmap;
}

VSTGUI::SharedPointer<VSTGUI::CBitmap> stackedImages(std::initializer_list<CColor> colours,
                                                     int width, int height, CPoint inset) {
  const auto left = static_cast<int>(inset.x);
  const auto top = static_cast<int>(inset.y);
  const auto count = static_cast<int>(colours.size());
  return bitmapOf(width + left, height * count + top, [&](int x, int y) {
    return x < left || y < top ? CColor(255, 0, 255) : colours.begin()[(y - top) / height];
  });
}

Picture::Picture(CFrame* frame, const CRect& area) {
  const auto context = VSTGUI::COffscreenContext::create(frame->getViewSize().getSize());
  context->beginDraw();
  frame->drawRect(context, area);
  context->endDraw();
  read(context->getBitmap());
}

Picture::Picture(VSTGUI::CBitmap* bitmap) {
  read(bitmap);
}

void Picture::read(VSTGUI::CBitmap* bitmap) {
  const auto access = VSTGUI::owned(VSTGUI::CBitmapPixelAccess::create(bitmap));
  width = static_cast<int>(access->getBitmapWidth());
  do {
    CColor colour;
    access->getColor(colour);
    pixels.push_back(static_cast<std::uint32_t>(colour.red) << 24U |
                     static_cast<std::uint32_t>(colour.green) << 16U |
                     static_cast<std::uint32_t>(colour.blue) << 8U | colour.alpha);
  } while (++*access);
}

CColor Picture::at(double x, double y) const {
  const std::uint32_t pixel =
      pixels.at(static_cast<std::size_t>(static_cast<int>(y) * width + static_cast<int>(x)));
  return {static_cast<std::uint8_t>(pixel >> 24U), static_cast<std::uint8_t>(pixel >> 16U),
          static_cast<std::uint8_t>(pixel >> 8U), static_cast<std::uint8_t>(pixel)};
}

ControlTest::ControlTest(const CRect& window)
    : frame(new CFrame(window, &editor)), root(new Root(window)) {
  frame->addView(root);
  frame->attached(frame);
  frame->onActivate(true);
}

ControlTest::~ControlTest() {
  if (frame != nullptr) closeFrame();
}

void ControlTest::closeFrame() {
  frame->close();
  frame = nullptr;
  root = nullptr;
}

bool ControlTest::press(CPoint where, MouseButton button,
                        std::initializer_list<ModifierKey> modifiers, std::uint32_t clickCount) {
  VSTGUI::MouseDownEvent event(where, button);
  event.modifiers = modifiersOf(modifiers);
  event.clickCount = clickCount;
  frame->dispatchEvent(event);
  return event.consumed;
}

bool ControlTest::release(CPoint where, MouseButton button) {
  VSTGUI::MouseUpEvent event(where, button);
  frame->dispatchEvent(event);
  return event.consumed;
}

bool ControlTest::move(CPoint where, MouseButton held) {
  VSTGUI::MouseMoveEvent event(where, held);
  frame->dispatchEvent(event);
  return event.consumed;
}

bool ControlTest::wheel(CPoint where, double deltaY) {
  VSTGUI::MouseWheelEvent event;
  event.mousePosition = where;
  event.deltaY = deltaY;
  frame->dispatchEvent(event);
  return event.consumed;
}

bool ControlTest::key(VirtualKey virt, std::initializer_list<ModifierKey> modifiers) {
  bool consumed = false;
  for (const auto type : {VSTGUI::EventType::KeyDown, VSTGUI::EventType::KeyUp}) {
    VSTGUI::KeyboardEvent event;
    event.type = type;
    event.virt = virt;
    event.modifiers = modifiersOf(modifiers);
    frame->dispatchEvent(event);
    consumed = consumed || event.consumed;
  }
  return consumed;
}

void ControlTest::cancelMouse() {
  VSTGUI::MouseCancelEvent event;
  frame->dispatchEvent(event);
}

void ControlTest::click(CPoint where, MouseButton button,
                        std::initializer_list<ModifierKey> modifiers) {
  press(where, button, modifiers);
  release(where, button);
}

}  // namespace controltest
