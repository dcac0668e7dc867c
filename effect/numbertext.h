// Numbers as the parameter displays show them.
#pragma once

// The classic rounding step before a truncation: where the digit after the last one kept is half or
// more, one is added to that last digit and the rest of the fraction stays; else x comes back
// unchanged. digits: 0..9. Any thread.
double round(double x, int digits);

// Writes `value` with up to `digits` digits after its point: eight characters at most are counted,
// the point and the sign among them, and a value with more digits loses its leading ones. Beyond
// 99999999, below -9999999 and for a NaN nothing is written: the text keeps what it held. text: 16
// bytes suffice. Any thread.
void float2string2(float value, int digits, char* text);
