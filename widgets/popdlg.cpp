#include "widgets/popdlg.h"

namespace {
// Just short of opaque, as every pop-up of the program is drawn.
constexpr qreal kPopOpacity = 0.99;
} // namespace

CPopDlg::CPopDlg(QWidget* parent, Qt::WindowFlags flags) : QDialog(parent, flags)
{
    setWindowTitle(tr(" "));
    setWindowOpacity(kPopOpacity);
}
