// How many pixels of the screen stand for one of the window's.
#pragma once

// 1 to 4, in quarters. 1 always where the system scales windows itself. User-interface threads,
// several at once too, and without a display.
// wanted: by the host, which goes before the screen; 0 or nonsense where it wants none.
double screenScale(double wanted);  // as it is now
// The same, asked of the screen at most a few times a second: hosts ask for the window's size
// several times in a row.
double recentScreenScale(double wanted);
