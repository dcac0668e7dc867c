// Opens, idles and closes the effect's window, and carries values and gestures to the host.
#include "formats/lv2/lv2window.h"

#include <limits>

std::unique_ptr<Lv2Window> Lv2Window::open(Lv2Effect& effect, WindowId parent, const Host& host) {
  std::unique_ptr<Lv2Window> made(new Lv2Window(effect, host));
  if (!effect.attach(made.get())) {
    made->effect = nullptr;  // it is another window's
    return nullptr;
  }
  if (!made->openIn(parent)) return nullptr;
  return made;
}

Lv2Window::Lv2Window(Lv2Effect& shown, const Host& itsHost)
    : effect(&shown),
      host(itsHost),
      told(static_cast<std::size_t>(shown.hosted().parameterCount()),
           std::numeric_limits<float>::quiet_NaN()) {}

// The host gets the id of our window and not of its own: it would destroy what it embeds.
bool Lv2Window::openIn(WindowId parent) {
  const std::vector<WindowId> before = childWindows(parent);
  if (!effect->hosted().openWindow(reinterpret_cast<void*>(parent), host.scale)) return false;
  window = newChildWindow(parent, before);
  if (window == 0) return false;
  const HostedEffect::Size size = effect->hosted().windowSize();
  if (host.resize != nullptr) host.resize->ui_resize(host.resize->handle, size.width, size.height);
  return true;
}

Lv2Window::~Lv2Window() {
  if (effect == nullptr) return;
  effect->hosted().closeWindow();
  effect->detach();
}

void Lv2Window::effectEnds() {
  effect->hosted().closeWindow();
  effect = nullptr;
}

void Lv2Window::idle() {
  if (effect == nullptr) return;
  effect->hosted().idleWindow();
  if (effect->takeOutdated()) tellAll();
}

void Lv2Window::portSaid(std::uint32_t port, float value) {
  if (effect == nullptr || port < effect->controlPort(0)) return;
  const std::size_t index = port - effect->controlPort(0);
  if (index < told.size()) told[index] = value;
}

void Lv2Window::tell(int index, float value) {
  told[static_cast<std::size_t>(index)] = value;
  host.write(host.controller, effect->controlPort(index), sizeof value, 0, &value);
}

// Another preset has been chosen, or a file loaded.
void Lv2Window::tellAll() {
  for (int index = 0; index < effect->hosted().parameterCount(); ++index) {
    const float value = effect->hosted().parameter(index);
    if (value != told[static_cast<std::size_t>(index)]) tell(index, value);
  }
}

void Lv2Window::touch(int index, bool held) const {
  if (host.touch != nullptr)
    host.touch->touch(host.touch->handle, effect->controlPort(index), held);
}
