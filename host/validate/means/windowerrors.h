// What hosts do about errors of the window system.
#pragma once

// They are passed over from now on, and do not end the process.
void passOverWindowErrors();
