// What users call the key that is the toolkit's control modifier.
#pragma once

const char* commandKeyName();
