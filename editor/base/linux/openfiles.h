// The files that a window and its drawing need.
#pragma once

// Whether the process may open as many as the opening of a window takes, most of them only for a
// moment. The font library keeps a failure for the process's life, so there have to be enough
// before it is asked.
bool areFilesLeft();

// Reads what the window's texts need, so that drawing them needs no files. With the toolkit set up;
// 12 ms in the first window of a process. Throws where memory runs out.
void loadFonts();
