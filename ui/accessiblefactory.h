#pragma once
// What assistive technology is told of the window's own widget classes
// that the toolkit cannot guess: the main window is a window (a dialog by
// its class), the waveform a focusable canvas whose name says the
// selection. Installed once, by the first main window.

void installAccessibleFactory();
