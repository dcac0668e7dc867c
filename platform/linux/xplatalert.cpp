// The alert, shown by the desktop's dialog program.
#include "platform/xplatalert.h"

#include "platform/linux/childprogram.h"
#include "platform/linux/desktopdialog.h"

void XPlatDisplayAlert(const char* message) {
  if (message == nullptr || !desktopdialog::hasDisplay()) return;
  for (const desktopdialog::Program& program : desktopdialog::alertPrograms()) {
    ChildProgram alert;
    if (!alert.start(desktopdialog::warning(program, "Trelvan", message))) continue;
    alert.wait();
    if (desktopdialog::answerOf(alert.exitStatus(), alert.output()) !=
        desktopdialog::Answer::unusable)
      return;
  }
}
