#pragma once

#include <functional>

// Waits, bounded, for a condition while the event loop runs.
bool EsperarHasta(const std::function<bool()>& condicion, int msMax);
