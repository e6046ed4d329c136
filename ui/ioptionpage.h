#pragma once
// IOptionPage: one page of the options dialog. OK asks every page to write
// its values into the configuration and store them. Pages are widgets, owned
// and destroyed as widgets (hence no virtual destructor here).

class IOptionPage
{
public:
    virtual void save() = 0;

protected:
    ~IOptionPage() = default;
};
