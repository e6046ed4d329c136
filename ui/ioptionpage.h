#pragma once
// IOptionPage: one page of the options dialog. Each opening of the dialog
// asks every page to show the saved settings; OK asks every page to write
// its values into the configuration and store them. Pages are widgets, owned
// and destroyed as widgets (hence no virtual destructor here).

class IOptionPage
{
public:
    // Shows the saved settings again, whatever was typed and cancelled before.
    virtual void load() = 0;
    virtual void save() = 0;

protected:
    ~IOptionPage() = default;
};
