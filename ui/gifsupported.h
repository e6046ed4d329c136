#pragma once
// CGifSupported: tells whether the toolkit can read GIF animations, so that
// the animated panes can fall back to a still picture. Stateless; any thread.

class CGifSupported
{
public:
    static bool getSupportedGIF();
};
