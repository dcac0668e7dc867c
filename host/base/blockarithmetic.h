// What is asked of whole blocks of samples, several at a time.
#pragma once

// Sample: float or double.
template <typename Sample>
Sample largestMagnitude(const Sample* samples, int count);
// Whether none is infinite or no number.
template <typename Sample>
bool allFinite(const Sample* samples, int count);
