// A Qt program with a canvas in it, as a stranger would write it against the installed widget.

#include <VostelWidget.h>

#include <QApplication>

#include <vector>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    VostelWidget canvas(0);
    canvas.resize(320, 200);
    canvas.show();
    std::vector<unsigned char> gray(32 * 20, 100);
    gCVSShowUCGray(canvas.canvas(), gray.data(), 32, 20, true);
    canvas.setKeys(VostelWidget::DeleteKey | VostelWidget::PenKeys);
    canvas.refresh();
    application.processEvents();
    return canvas.imageSize() == QSize(32, 20) && !canvas.keys().testFlag(VostelWidget::OverwriteKeys) ? 0
                                                                                                       : 1;
}
