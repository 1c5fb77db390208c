#include "ViewerProcess.h"

#include <doctest/doctest.h>

#include <filesystem>
#include <fstream>

namespace {

struct Files : TempFolder {
    Picture     Noise = GrayNoise(320, 200, 11);
    std::string NoisePath = Path("noise.png");

    Files() { REQUIRE(Save(Noise, NoisePath)); }
};

// A ramp of 16-bit samples: every row runs from 0 to its end.
std::string WriteRamp(const TempFolder& folder, int width, int height, const char* name)
{
    std::ofstream file(folder.Path(name), std::ios::binary);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const int value = x * 65535 / (width - 1);
            file.put(static_cast<char>(value & 0xFF));
            file.put(static_cast<char>(value >> 8));
        }
    return folder.Path(name);
}

}

TEST_CASE("the Open dialog shows the file whose path is typed, pixel by pixel")
{
    const Files   files;
    ViewerProcess viewer(files, {});
    REQUIRE(viewer.IsUp());
    CHECK_FALSE(Find(files.Noise, Desk().Grab()).Found());
    REQUIRE(viewer.OpenDialog("ctrl+o"));
    REQUIRE(viewer.AnswerDialog(files.NoisePath));
    CHECK(Find(files.Noise, Desk().Settled()).Found());
    CHECK(Desk().TopTitle().find("noise.png") == 0);
    CHECK(viewer.Quit() == 0);
    CHECK(viewer.Complaints() == "");
}

TEST_CASE("a file that is dropped on the window is shown")
{
    const Files   files;
    ViewerProcess viewer(files, {});
    REQUIRE(viewer.IsUp());
    REQUIRE(Desk().Drop(files.NoisePath, {600, 400}));
    CHECK(XScreen::Wait([&] { return Find(files.Noise, Desk().Settled()).Found(); }));
    CHECK(viewer.Quit() == 0);
    CHECK(viewer.Complaints() == "");
}

TEST_CASE("a file of the last run is offered again, and opened by its number")
{
    const Files files;
    {
        ViewerProcess viewer(files, {files.NoisePath});
        REQUIRE(viewer.IsUp());
        REQUIRE(Find(files.Noise, Desk().Settled()).Found());
        REQUIRE(viewer.Quit() == 0);
    }
    ViewerProcess viewer(files, {});
    REQUIRE(viewer.IsUp());
    REQUIRE_FALSE(Find(files.Noise, Desk().Settled()).Found());
    Desk().Key("alt+f");
    Desk().Settled();
    Desk().Key("r");
    Desk().Settled();
    Desk().Key("1");
    CHECK(XScreen::Wait([&] { return Find(files.Noise, Desk().Settled()).Found(); }));
    CHECK(viewer.Quit() == 0);
}

TEST_CASE("a file that is not a picture is reported in a message, and the viewer goes on")
{
    const Files files;
    std::ofstream(files.Path("broken.png")) << "no picture";
    ViewerProcess viewer(files, {files.Path("broken.png"), files.Path("missing.png"), files.NoisePath});
    REQUIRE(XScreen::Wait([] { return Desk().WindowCount() == 2; }));
    Desk().Settled();
    REQUIRE(viewer.AnswerDialog(""));
    CHECK(Find(files.Noise, Desk().Settled()).Found());    // the good one is on the third canvas
    CHECK(viewer.Quit() == 0);
}

TEST_CASE("a file that cannot be read, or whose dialog is cancelled, leaves the picture before")
{
    const Files files;
    std::ofstream(files.Path("broken.png")) << "no picture";
    const std::string ramp = WriteRamp(files, 64, 64, "ramp.raw");
    ViewerProcess     viewer(files, {files.NoisePath});
    REQUIRE(viewer.IsUp());
    REQUIRE(Find(files.Noise, Desk().Settled()).Found());
    REQUIRE(Desk().Drop(files.Path("broken.png"), {600, 400}));
    REQUIRE(XScreen::Wait([] { return Desk().WindowCount() == 2; }));
    Desk().Settled();
    REQUIRE(viewer.AnswerDialog(""));
    CHECK(Find(files.Noise, Desk().Settled()).Found());
    REQUIRE(Desk().Drop(ramp, {600, 400}));
    REQUIRE(XScreen::Wait([] { return Desk().WindowCount() == 2; }));
    Desk().Settled();
    Desk().Key("Escape");
    REQUIRE(XScreen::Wait([] { return Desk().WindowCount() == 1; }));
    CHECK(Find(files.Noise, Desk().Settled()).Found());
    CHECK(Desk().TopTitle().find("noise.png") == 0);
    CHECK(viewer.Quit() == 0);
    CHECK(viewer.Complaints() == "");
}

TEST_CASE("a picture whose name and folder are Chinese is opened, and a save goes beside it")
{
    const Files files;
    files.MakeFolder("\u56fe\u7247");
    const std::string picture = files.Path("\u56fe\u7247/\u786c\u5e01.png");
    std::filesystem::rename(files.NoisePath, picture);
    ViewerProcess viewer(files, {picture});
    REQUIRE(viewer.IsUp());
    CHECK(Find(files.Noise, Desk().Settled()).Found());
    REQUIRE(viewer.OpenDialog("alt+f", "a"));
    REQUIRE(viewer.AnswerDialog("beside.bmp"));
    std::filesystem::rename(files.Path("\u56fe\u7247/beside.bmp"), files.Path("beside.bmp"));
    CHECK(Load(files.Path("beside.bmp")) == files.Noise);
    CHECK(viewer.Quit() == 0);
    CHECK(viewer.Complaints() == "");
}

TEST_CASE("on a screen of one and a half device pixels each way an image pixel is still one device pixel")
{
    const Files   files;
    ViewerProcess viewer(files, {files.NoisePath}, {{"QT_SCALE_FACTOR", "1.5"}});
    REQUIRE(viewer.IsUp());
    CHECK(Find(files.Noise, Desk().Settled()).Found());
    CHECK(viewer.Quit() == 0);
}

TEST_CASE("the six saves write what the canvas holds")
{
    const Files   files;
    ViewerProcess viewer(files, {files.NoisePath});
    REQUIRE(viewer.IsUp());
    const Place origin = Find(files.Noise, Desk().Settled());
    REQUIRE(origin.Found());
    Desk().Key("ctrl+r");
    Desk().Hold("shift");
    Desk().Drag({origin.X + 40, origin.Y + 30}, {origin.X + 121, origin.Y + 91});
    Desk().Release("shift");
    Desk().Click({origin.X + 250, origin.Y + 150});    // nothing is selected now
    Desk().Move({700, 870});
    const Picture shown = Desk().Settled();
    REQUIRE(shown.At(origin.X + 80, origin.Y + 30) == Blue);

    const auto save = [&](const char* menu, const char* entry, const std::string& path) {
        CAPTURE(path);
        REQUIRE(viewer.OpenDialog(menu, entry));
        REQUIRE(viewer.AnswerDialog(path));
        REQUIRE(std::filesystem::exists(path));
    };
    save("alt+f", "w", files.Path("objects.png"));
    const Picture objects = Load(files.Path("objects.png"));
    CHECK(objects.Width == 320);
    CHECK(objects.Height == 200);
    CHECK(objects.At(80, 30) == Blue);
    CHECK(objects.At(200, 100) == files.Noise.At(200, 100));

    save("alt+f", "a", files.Path("shown.bmp"));
    CHECK(Load(files.Path("shown.bmp")) == files.Noise);

    save("alt+f", "c", files.Path("client.png"));
    const Picture client = Load(files.Path("client.png"));
    CHECK(Find(client, shown).Found());

    save("alt+f", "8", files.Path("gray.bmp"));
    const Picture gray = Load(files.Path("gray.bmp"));
    CHECK(gray.Width == 320);
    CHECK(gray.Height == 200);

    save("alt+f", "l", files.Path("labels.raw"));
    std::ifstream    labels(files.Path("labels.raw"), std::ios::binary);
    std::vector<int> plane(320 * 200);
    labels.read(reinterpret_cast<char*>(plane.data()), 320 * 200 * 4);
    REQUIRE(labels.gcount() == 320 * 200 * 4);
    CHECK(plane[static_cast<std::size_t>((199 - 60) * 320 + 80)] == 1);    // bottom row first
    CHECK(plane[static_cast<std::size_t>((199 - 150) * 320 + 250)] == 0);
    CHECK(viewer.Quit() == 0);
    CHECK(viewer.Complaints() == "");
}

TEST_CASE(
    "a raw file opens with the layout that the dialog guesses, the slider darkens it, and its data save")
{
    const Files       files;
    const std::string ramp = WriteRamp(files, 256, 256, "ramp.raw");
    ViewerProcess     viewer(files, {ramp});
    REQUIRE(XScreen::Wait([] { return Desk().WindowCount() == 2; }));
    Desk().Settled();
    REQUIRE(viewer.AnswerDialog(""));
    Picture shown = Desk().Settled();
    // Columns of the ramp 0, 1, 2, ... stand side by side.
    Picture row(256, 2);
    for (int x = 0; x < 256; ++x)
        row.At(x, 0) = row.At(x, 1) = static_cast<unsigned>(x) * 0x010101u;
    const Place origin = Find(row, shown);
    REQUIRE(origin.Found());
    REQUIRE(Find(row, Desk().Grab(0, origin.Y + 250, 1400, 6)).Found());    // the last rows too

    REQUIRE(viewer.OpenDialog("alt+f", "f"));
    REQUIRE(viewer.AnswerDialog(files.Path("data.raw")));
    std::ifstream      data(files.Path("data.raw"), std::ios::binary);
    std::vector<float> values(256 * 256);
    data.read(reinterpret_cast<char*>(values.data()), 256 * 256 * 4);
    REQUIRE(data.gcount() == 256 * 256 * 4);
    CHECK(values[0] == 0.0f);
    CHECK(values[255] == 65535.0f);

    // The dark thumb, 80 80 80, is found on the screen and dragged to the middle of the track.
    Desk().Key("F7");
    shown = Desk().Settled();
    Place thumb;
    for (int y = 0; y < shown.Height && !thumb.Found(); ++y)
        for (int x = 0; x + 10 < shown.Width && !thumb.Found(); ++x)
            if (shown.Count(0x505050, x, y, x + 10, y + 20) == 200)
                thumb = {x + 5, y + 10};
    REQUIRE(thumb.Found());
    Desk().Drag(thumb, {thumb.X + 163, thumb.Y});
    Desk().Move({700, 870});
    shown = Desk().Settled();
    CHECK(shown.At(origin.X + 100, origin.Y + 5) == 0x000000);
    const unsigned lighter = shown.At(origin.X + 192, origin.Y + 5) & 0xFF;
    CHECK(lighter > 100);    // half way between the thumbs
    CHECK(lighter < 155);
    CHECK(shown.At(origin.X + 255, origin.Y + 5) == 0xFFFFFF);
    CHECK(viewer.Quit() == 0);
    CHECK(viewer.Complaints() == "");
}
