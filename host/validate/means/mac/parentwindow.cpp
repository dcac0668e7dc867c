// A window of the host's for an effect's window to open in: not made on this system.
#include "host/validate/means/parentwindow.h"

struct ParentWindow::System {};

void ParentWindow::needDisplay(Trial& trial) {
  trial.leaveOut("windows are checked on Linux only");
}

void ParentWindow::needNamedDisplay(Trial& trial) {
  trial.leaveOut("displays have no names on this system");
}

ParentWindow::ParentWindow(HostCallback::Size, bool) : system(new System) {}
ParentWindow::~ParentWindow() = default;

void* ParentWindow::handle() const {
  return nullptr;
}

void ParentWindow::show() {}
bool ParentWindow::isShown() {
  return false;
}
void ParentWindow::resize(HostCallback::Size) {}
void ParentWindow::destroy() {}

std::vector<ParentWindow::Child> ParentWindow::children() {
  return {};
}

bool ParentWindow::isPainted() {
  return true;
}

bool ParentWindow::cutConnection(bool) {
  return false;
}
