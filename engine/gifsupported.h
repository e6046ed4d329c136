#pragma once
// CGifSupported: tells whether the toolkit can read GIF animations, so that
// the animated panes can fall back to a still picture. Kept with the engine
// wrappers so that the progress pane and the dialogs above it both reach it.
// Stateless; any thread.

class CGifSupported
{
public:
    static bool getSupportedGIF();
};
