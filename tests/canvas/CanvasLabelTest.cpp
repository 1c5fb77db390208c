// The label image as a host reads it while a canvas has no objects. Objects stand in ElementRoutingTest.

#include "support/HostCanvas.h"

TEST_CASE("without objects every label is 1, and so is the result")
{
    HostCanvas host(0, 60, 40);
    host.ShowFlatGray(7, 5, 0);
    for (const bool selectedOnly : {false, true}) {
        CHECK(gCVSGenerateLabel(0, selectedOnly) == 1);
        const ClassData2DIO<int>& labels = gCVSGetLabelIma(0);
        REQUIRE(labels.Width == 7);
        REQUIRE(labels.Height == 5);
        for (int i = 0; i < 35; ++i)
            CHECK(labels.Ptr1D[i] == 1);
    }
}

TEST_CASE("the pointer exports return the label container's own pointers")
{
    HostCanvas host(0, 60, 40);
    host.ShowFlatGray(7, 5, 0);
    gCVSGenerateLabel(0, false);
    const ClassData2DIO<int>& labels = gCVSGetLabelIma(0);
    CHECK(gCVSGetLabelImaPtr1D(0) == labels.Ptr1D);
    CHECK(gCVSGetLabelImaPtr2D(0) == labels.Ptr2D);
    for (int y = 0; y < 5; ++y)
        CHECK(labels.Ptr2D[y] == labels.Ptr1D + 7 * y);
}

TEST_CASE("labels keep the size and content of their last generation until the next")
{
    HostCanvas host(0, 60, 40);
    host.ShowFlatGray(7, 5, 0);
    gCVSGenerateLabel(0, false);
    gCVSGetLabelIma(0).Ptr2D[4][6] = 77;
    host.ShowFlatGray(3, 2, 0);
    CHECK(gCVSGetLabelIma(0).Width == 7);
    CHECK(gCVSGetLabelIma(0).Ptr2D[4][6] == 77);
    gCVSGenerateLabel(0, false);
    CHECK(gCVSGetLabelIma(0).Width == 3);
    CHECK(gCVSGetLabelIma(0).Height == 2);
    CHECK(gCVSGetLabelIma(0).Ptr2D[1][2] == 1);
}

TEST_CASE("showing float data and every change of its contrast generate labels anew")
{
    HostCanvas host(0, 60, 40);
    host.ShowFloat(6, 4, [](int x, int) { return x; });
    REQUIRE(gCVSGetLabelIma(0).Width == 6);
    REQUIRE(gCVSGetLabelIma(0).Height == 4);
    for (int i = 0; i < 24; ++i)
        CHECK(gCVSGetLabelIma(0).Ptr1D[i] == 1);
    gCVSGetLabelIma(0).Ptr2D[3][5] = 0;
    gCVSSetLutPara(0, 0.2f, 0.8f);
    CHECK(gCVSGetLabelIma(0).Ptr2D[3][5] == 1);
}

TEST_CASE("a host that releases or resizes the label image harms nothing")
{
    HostCanvas host(0, 60, 40);
    host.ShowFloat(6, 4, [](int x, int) { return x; });
    gCVSGetLabelIma(0).Release();
    gCVSSetLutPara(0, 0.2f, 0.8f);
    CHECK(gCVSGetLabelIma(0).Width == 6);
    gCVSGetLabelIma(0).Allocate(2, 2);
    gCVSSetLutPara(0, 0.2f, 0.8f);
    CHECK(gCVSGetLabelIma(0).Width == 6);
    CHECK(gCVSGetLabelIma(0).Ptr2D[3][5] == 1);
    gCVSGetRaw(0).Release();
    gCVSSetLutPara(0, 0.1f, 0.9f);
    CHECK(gCVSGetLabelIma(0).Height == 4);
}

TEST_CASE("labels of an image without pixels are none")
{
    HostCanvas host(0, 60, 40);
    CHECK(gCVSGenerateLabel(0, false) == 1);
    CHECK(gCVSGetLabelIma(0).Width == 0);
    CHECK(gCVSGetLabelIma(0).Height == 0);
}

TEST_CASE("a number that names no canvas gives 1 and makes no labels")
{
    CHECK(gCVSGenerateLabel(-1, false) == 1);
    CHECK(gCVSGenerateLabel(5, true) == 1);
    CHECK(gCVSGetLabelImaPtr1D(5) == nullptr);
}
