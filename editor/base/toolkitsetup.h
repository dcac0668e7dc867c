// The beginning and the end of the toolkit's library, which differ from system to system.
#pragma once

// Called once around the library's life, by the class that counts its users. Throws where memory
// runs out, with nothing set up.
void setUpToolkit();
void tearDownToolkit();
