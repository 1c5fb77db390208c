// The parameter dialogs inside this program, on the toolkit's screen in memory.

#include "dialogs/ParameterDialogs.h"
#include "dialogs/RawLayoutDialog.h"
#include "dialogs/RegionDialog.h"

#include "support/TempFolder.h"

#include <QDialogButtonBox>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>

#include <doctest/doctest.h>

#include <algorithm>
#include <vector>

using namespace vostel::widget;

namespace {

QStringList TextsOf(const QDialog& dialog)
{
    QStringList texts;
    for (const QLabel* const label : dialog.findChildren<QLabel*>())
        texts << label->text();
    return texts;
}

QString VerdictOf(const QDialog& dialog)
{
    for (const QLabel* const label : dialog.findChildren<QLabel*>())
        if (!label->styleSheet().isEmpty())
            return label->text();
    return {};
}

}

TEST_CASE("the raw dialog shows at once whether the layout fits the file")
{
    const TempFolder folder;
    const QString    path = QString::fromStdString(folder.Path("data.raw"));
    QFile            file(path);
    REQUIRE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray(640 * 480 * 2, '\0'));
    file.close();
    RawLayoutDialog dialog(path);
    CHECK(dialog.Layout().Width == 640);
    CHECK(dialog.Layout().Height == 480);
    CHECK(VerdictOf(dialog).contains(QStringLiteral("exactly")));
    QSpinBox* const width = dialog.findChildren<QSpinBox*>().front();
    width->setValue(641);
    CHECK(VerdictOf(dialog).contains(QStringLiteral("960 bytes short")));
    width->setValue(639);
    CHECK(VerdictOf(dialog).contains(QStringLiteral("960 bytes more")));
    auto* const ok = dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
    CHECK(ok->isEnabled());
    width->setValue(100000);
    dialog.findChildren<QSpinBox*>()[1]->setValue(100000);
    CHECK_FALSE(ok->isEnabled());    // 10^10 pixels
}

TEST_CASE("the region dialog stays inside the image and wants right beyond left")
{
    RegionDialog               dialog(QSize(50, 40));
    const tagZEKImaROIRectPara region = dialog.Region();
    CHECK(region.RoiRight < 50);
    CHECK(region.RoiBottom < 40);
    CHECK(region.RoiLeft < region.RoiRight);
    auto* const ok = dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
    CHECK(ok->isEnabled());
    dialog.findChildren<QSpinBox*>()[1]->setValue(0);    // right
    CHECK_FALSE(ok->isEnabled());
}

TEST_CASE("the region dialog counts its edges as the label image does, up to the whole image")
{
    struct Edges {
        int Left, Right, Top, Bottom, Width, Height;
    };
    for (const Edges& edges : {Edges{10, 140, 20, 110, 131, 91}, Edges{0, 199, 0, 159, 200, 160}}) {
        RegionDialog dialog(QSize(200, 160));
        const auto   boxes = dialog.findChildren<QSpinBox*>();
        REQUIRE(boxes.size() == 4);
        const int values[] = {edges.Left, edges.Right, edges.Top, edges.Bottom};
        for (int i = 0; i < 4; ++i)
            boxes[i]->setValue(values[i]);
        CHECK(TextsOf(dialog).contains(QStringLiteral("%1 × %2 pixels").arg(edges.Width).arg(edges.Height)));

        std::vector<unsigned char> gray(200 * 160, 90);
        gCVSShowUCGray(0, gray.data(), 200, 160, true);
        TessikDialogs answer;
        answer.ImaROIRectPara = [&dialog](tagZEKImaROIRectPara& para) {
            para = dialog.Region();
            return true;
        };
        gDlgSetDialogs(answer);
        gCVSAddCustomRectangle(0);
        InstallParameterDialogs();
        gCVSGenerateLabel(0, false);
        const ClassData2DIO<int>& labels = gCVSGetLabelIma(0);
        const auto pixels = std::count(labels.Ptr1D, labels.Ptr1D + labels.Width * labels.Height, 1);
        CHECK(pixels == edges.Width * edges.Height);
        gCVSDelAllElement(0);
    }
}

TEST_CASE("the region dialog takes no edge beyond the last pixel")
{
    RegionDialog dialog(QSize(200, 160));
    const auto   boxes = dialog.findChildren<QSpinBox*>();
    boxes[1]->setValue(200);
    boxes[3]->setValue(160);
    CHECK(dialog.Region().RoiRight == 199);
    CHECK(dialog.Region().RoiBottom == 159);
}
