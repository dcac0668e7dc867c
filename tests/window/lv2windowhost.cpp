// What an LV2 host does for an effect's window.
#include "lv2windowhost.h"

#include <dlfcn.h>
#include <lv2/atom/atom.h>
#include <lv2/options/options.h>

#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <thread>

namespace {

// Pixels.
constexpr int kHostWidth = 320;
constexpr int kHostHeight = 280;
constexpr int kTop = 40;

template <typename Entry>
Entry entryOf(const char* name) {
  const char* path = std::getenv("TRELVAN_LV2_MODULE");
  void* module = dlopen(path != nullptr ? path : "", RTLD_NOW | RTLD_LOCAL);  // stays loaded
  if (module == nullptr) throw std::runtime_error(dlerror());
  return reinterpret_cast<Entry>(dlsym(module, name));
}

}  // namespace

Lv2WindowHost::Lv2WindowHost(int place, Plugin which, int itsScale)
    : plugin(which),
      scale(itsScale),
      left(20 + 330 * scale * place),
      window(display.makeWindow(area())),
      descriptor(entryOf<LV2_Descriptor_Function>("lv2_descriptor")(which == Plugin::mono ? 1 : 0)),
      uiDescriptor(entryOf<LV2UI_DescriptorFunction>("lv2ui_descriptor")(0)) {
  effect = descriptor->instantiate(descriptor, 44100.0, "", numbers.features());
  for (std::uint32_t port = 0; port < firstControl(); ++port)
    descriptor->connect_port(effect, port, audio[port].data());
  for (std::uint32_t i = 0; i < kControls; ++i)
    descriptor->connect_port(effect, firstControl() + i, &controls[i]);
  descriptor->activate(effect);
}

Lv2WindowHost::~Lv2WindowHost() {
  close();
  endEffect();
  display.destroyWindow(window);
}

Area Lv2WindowHost::area() const {
  return {left, kTop, left + kHostWidth * scale, kTop + kHostHeight * scale};
}

LV2UI_Handle Lv2WindowHost::instantiateWindow(const char* uri, const std::string& withheld,
                                              LV2UI_Widget& widget) {
  const LV2_Options_Option options[] = {
      {LV2_OPTIONS_INSTANCE, 0, scaleFactor ? numbers.of(LV2_UI__scaleFactor) : 0, sizeof(float),
       numbers.of(LV2_ATOM__Float), scaleFactor ? &*scaleFactor : nullptr},
      {}};
  const LV2_Feature has[] = {{LV2_INSTANCE_ACCESS_URI, effect},
                             {LV2_UI__parent, reinterpret_cast<void*>(std::uintptr_t{window})},
                             {LV2_UI__touch, &touching},
                             {LV2_UI__resize, &resizing},
                             {LV2_UI__idleInterface, nullptr},
                             {LV2_URID__map, (*numbers.features())->data},
                             {LV2_OPTIONS__options, const_cast<LV2_Options_Option*>(options)}};
  std::vector<const LV2_Feature*> features;
  for (const LV2_Feature& feature : has) {
    if (feature.URI != withheld) features.push_back(&feature);
  }
  features.push_back(nullptr);
  return uiDescriptor->instantiate(uiDescriptor, uri, "", write, this, &widget, features.data());
}

void Lv2WindowHost::write(LV2UI_Controller host, std::uint32_t port, std::uint32_t size,
                          std::uint32_t format, const void* value) {
  auto& self = *static_cast<Lv2WindowHost*>(host);
  float said = 0.0F;
  if (size != sizeof said || format != 0) throw std::runtime_error("no plain float");
  std::memcpy(&said, value, sizeof said);
  self.told.push_back({Lv2Told::Kind::value, port, said});
  if (self.portsFollow) self.controls.at(port - self.firstControl()) = said;
}

void Lv2WindowHost::touch(LV2UI_Feature_Handle host, std::uint32_t port, bool held) {
  static_cast<Lv2WindowHost*>(host)->told.push_back(
      {held ? Lv2Told::Kind::touched : Lv2Told::Kind::released, port, 0.0F});
}

int Lv2WindowHost::resize(LV2UI_Feature_Handle host, int width, int height) {
  static_cast<Lv2WindowHost*>(host)->toldSize = {width, height};
  return 0;
}

bool Lv2WindowHost::open(const std::string& withheld) {
  moveAway();
  const char* uri = descriptor->URI;
  LV2UI_Widget widget = nullptr;
  ui = instantiateWindow(uri, withheld, widget);
  child = static_cast<xcb_window_t>(reinterpret_cast<std::uintptr_t>(widget));
  if (ui != nullptr) sayPorts();
  return ui != nullptr;
}

bool Lv2WindowHost::opensAnother() {
  return opensFor(descriptor->URI);
}

bool Lv2WindowHost::opensFor(const char* pluginUri) {
  LV2UI_Widget widget = nullptr;
  const LV2UI_Handle another = instantiateWindow(pluginUri, {}, widget);
  if (another != nullptr) uiDescriptor->cleanup(another);
  return another != nullptr;
}

void Lv2WindowHost::close() {
  if (ui != nullptr) uiDescriptor->cleanup(ui);
  ui = nullptr;
}

void Lv2WindowHost::endEffect() {
  if (effect == nullptr) return;
  descriptor->deactivate(effect);
  descriptor->cleanup(effect);
  effect = nullptr;
}

void Lv2WindowHost::sayPorts() {
  for (std::uint32_t i = 0; i < kControls; ++i)
    uiDescriptor->port_event(ui, firstControl() + i, sizeof(float), 0, &controls[i]);
}

Lv2Kept Lv2WindowHost::state() const {
  const auto* calls =
      static_cast<const LV2_State_Interface*>(descriptor->extension_data(LV2_STATE__interface));
  Lv2Kept kept;
  calls->save(effect, Lv2Kept::store, &kept, 0, nullptr);
  return kept;
}

void Lv2WindowHost::restore(const Lv2Kept& kept) {
  const auto* calls =
      static_cast<const LV2_State_Interface*>(descriptor->extension_data(LV2_STATE__interface));
  Lv2Kept copy = kept;
  if (calls->restore(effect, Lv2Kept::retrieve, &copy, 0, nullptr) != LV2_STATE_SUCCESS)
    throw std::runtime_error("the state was refused");
}

void Lv2WindowHost::run(float leftLevel, float rightLevel) {
  for (std::size_t i = 0; i < audio[0].size(); ++i) {
    const float sign = i / 50 % 2 == 0 ? 1.0F : -1.0F;
    audio[0][i] = sign * leftLevel;
    if (plugin == Plugin::stereo) audio[1][i] = sign * rightLevel;
  }
  descriptor->run(effect, static_cast<std::uint32_t>(audio[0].size()));
}

void Lv2WindowHost::idle() {
  display.sync();
  const auto* calls =
      static_cast<const LV2UI_Idle_Interface*>(uiDescriptor->extension_data(LV2_UI__idleInterface));
  if (calls->idle(ui) != 0) throw std::runtime_error("the window has closed by itself");
}

void Lv2WindowHost::settle() {
  picture();
}

void Lv2WindowHost::press(int x, int y) {
  moveTo(x, y);
  display.press(1);
  idle();
}

void Lv2WindowHost::moveTo(int x, int y) {
  display.moveTo(left + x * scale, kTop + y * scale);
  idle();
}

void Lv2WindowHost::release() {
  display.release(1);
  idle();
}

void Lv2WindowHost::click(const Area& area) {
  press(area.centreX(), area.centreY());
  release();
}

void Lv2WindowHost::moveAway() {
  display.moveTo(left, area().bottom + 20);
  if (ui != nullptr) idle();
}

Picture Lv2WindowHost::picture() {
  return display.stillPicture(area(), [this] {
    idle();
    std::this_thread::sleep_for(kRedrawTime);
    idle();
  });
}
