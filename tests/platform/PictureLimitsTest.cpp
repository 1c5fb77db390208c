// Limits of files of pictures that the host sets.

#include "support/HostCanvas.h"
#include "support/TempFolder.h"

namespace {

struct PictureFile {
    TempFolder Folder;
    CString    Path;
    long long  Bytes = 0;

    PictureFile(int width, int height) : Path(Folder.WidePath("a.bmp"))
    {
        CImage image;
        REQUIRE(image.Create(width, height, 24));
        REQUIRE(image.Save(Path) >= 0);
        Bytes = static_cast<long long>(ReadBytes(Folder.Path("a.bmp")).size());
    }
    bool Loads() const
    {
        CImage image;
        return image.Load(Path) >= 0;
    }
};

// Those of the environment come back.
struct LimitsOfATest {
    explicit LimitsOfATest(const VostelPictureLimits& limits) { REQUIRE(gSetPictureLimits(limits)); }
    ~LimitsOfATest() { gSetPictureLimits(VostelPictureLimits()); }
    LimitsOfATest(const LimitsOfATest&) = delete;
    LimitsOfATest& operator=(const LimitsOfATest&) = delete;
};

bool LoadsWithin(const PictureFile& file, const VostelPictureLimits& limits)
{
    const LimitsOfATest limited(limits);
    return file.Loads();
}

constexpr long long Constant = 64 << 20;

}

TEST_CASE("a picture at a limit loads, and one beyond does not")
{
    const PictureFile file(5, 4);
    CHECK(LoadsWithin(file, {20, 0, 0}));
    CHECK_FALSE(LoadsWithin(file, {19, 0, 0}));
    CHECK(LoadsWithin(file, {0, file.Bytes, 0}));
    CHECK_FALSE(LoadsWithin(file, {0, file.Bytes - 1, 0}));
    const long long most = 4 * std::max<long long>(file.Bytes, 4 * 20) + Constant;
    CHECK(LoadsWithin(file, {0, 0, most}));
    CHECK_FALSE(LoadsWithin(file, {0, 0, most - 1}));
    CHECK(file.Loads());
}

TEST_CASE("limits of zero, and larger ones than there can be, are the default")
{
    const VostelPictureLimits defaults = gGetPictureLimits();
    CHECK(defaults.MaxPixels == 1 << 28);
    CHECK(defaults.MaxFileBytes == 1LL << 31);
    CHECK(defaults.MaxMemory == 0);
    const LimitsOfATest limited({LLONG_MAX, LLONG_MAX, LLONG_MAX});
    CHECK(gGetPictureLimits().MaxPixels == defaults.MaxPixels);
    CHECK(gGetPictureLimits().MaxFileBytes == defaults.MaxFileBytes);
    CHECK(gGetPictureLimits().MaxMemory == 0);
    CHECK(PictureFile(5, 4).Loads());
}

TEST_CASE("negative limits are refused, and those before hold")
{
    const PictureFile   file(5, 4);
    const LimitsOfATest limited({19, 0, 0});
    CHECK_FALSE(gSetPictureLimits({-1, 0, 0}));
    CHECK_FALSE(gSetPictureLimits({20, -1, 0}));
    CHECK_FALSE(gSetPictureLimits({20, 0, LLONG_MIN}));
    CHECK(gGetPictureLimits().MaxPixels == 19);
    CHECK_FALSE(file.Loads());
    CHECK(gSetPictureLimits({20, 0, 0}));
    CHECK(file.Loads());
}

TEST_CASE("planes of a bitmap at a limit are read, and those beyond are released")
{
    const PictureFile file(5, 4);
    const auto        width = [&file](const VostelPictureLimits& limits) {
        const LimitsOfATest          limited(limits);
        ClassData2DIO<unsigned char> planes[4], gray;
        std::string                  path = file.Folder.Path("a.bmp");
        const bool read = ZEKReadColorBmp(path.data(), &planes[0], &planes[1], &planes[2], &planes[3]);
        CHECK(ZEKReadGrayBmp(path.data(), &gray));
        CHECK(read == (planes[0].Width == 5));
        CHECK(read == (gray.Width == 5));
        return gray.Width;
    };
    CHECK(width({20, 0, 0}) == 5);
    CHECK(width({19, 0, 0}) == 0);
    CHECK(width({0, file.Bytes, 0}) == 5);
    CHECK(width({0, file.Bytes - 1, 0}) == 0);
    const long long most = 4 * std::max<long long>(file.Bytes, 4 * 20) + Constant;
    CHECK(width({0, 0, most}) == 5);
    CHECK(width({0, 0, most - 1}) == 0);
}

TEST_CASE("a canvas keeps its picture where the file is beyond the limits")
{
    const PictureFile   file(5, 4);
    HostCanvas          host(0, 60, 40);
    const LimitsOfATest limited({6, 0, 0});
    CString             path = file.Path;
    host.ShowFlatGray(3, 3, 100);
    gCVSReadFile(0, path, true);
    CHECK(gCVSGetFileType(0) == FileTypeNone);
    CHECK(FrameDifference(host.Surface(), Frame(3, 3, 0x646464)) == "");
}

TEST_CASE("larger pictures than the limits are made and saved")
{
    const LimitsOfATest limited({1, 1, 1});
    const PictureFile   file(5, 4);
    CHECK(file.Bytes > 1);
    CHECK_FALSE(file.Loads());
}
