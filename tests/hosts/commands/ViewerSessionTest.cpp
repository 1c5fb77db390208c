#include "hosts/commands/TestViewer.h"

#include <vostel.h>

#include <cmath>
#include <fstream>
#include <memory>
#include <new>

using namespace vostel::viewer;

namespace {

bool Confirm(RoutineQuestion&)
{
    return true;
}

// Parameters that keep the worker busy for seconds, in fifty steps.
bool ConfirmLong(RoutineQuestion& question)
{
    question.Values = {63.0, 10.0, 50.0};    // of Gauss: size, sigma, passes
    return true;
}

double ScaleShown(HostCanvas& host)
{
    const CRect region = host.Region();
    return (region.right - region.left) / static_cast<double>(gCVSGetCanvasWidth(host.Number));
}

}

TEST_CASE("the first file goes to the current canvas, each further one to the next, all then side by side")
{
    TestViewer viewer;
    viewer.Session.SelectCanvas(1);
    CHECK_FALSE(viewer.Session.IsTiled());
    viewer.Session.OpenFiles({viewer.MakePicture("a.bmp", 50, 40), viewer.MakePicture("b.bmp", 30, 20)});
    CHECK(viewer.Session.IsTiled());
    CHECK(viewer.Session.Current() == 1);
    CHECK(gCVSGetCanvasWidth(1) == 50);
    CHECK(gCVSGetCanvasWidth(2) == 30);
    CHECK(viewer.Session.FileOf(1) == viewer.NameIn("a.bmp"));
    CHECK(viewer.Session.FileNameOf(2) == L"b.bmp");
    CHECK(viewer.Session.FileOf(0).empty());
    CHECK(viewer.Reports.empty());
}

TEST_CASE("files beyond the fifth canvas are refused, and no canvas before the current one changes")
{
    TestViewer viewer;
    viewer.Session.OpenFiles({viewer.MakePicture("first.bmp", 20, 20)});
    viewer.Session.SelectCanvas(3);
    viewer.Session.OpenFiles({viewer.MakePicture("a.bmp"), viewer.MakePicture("b.bmp"),
                              viewer.MakePicture("c.bmp"), viewer.MakePicture("d.bmp")});
    CHECK(viewer.Session.FileNameOf(3) == L"a.bmp");
    CHECK(viewer.Session.FileNameOf(4) == L"b.bmp");
    CHECK(viewer.Session.FileNameOf(0) == L"first.bmp");
    CHECK(gCVSGetCanvasWidth(0) == 20);
    CHECK(gCVSGetFileType(1) == FileTypeNone);
    REQUIRE(viewer.Reports.size() == 1);
    CHECK(viewer.Reports[0] == viewer.NameIn("c.bmp") + L"\nThere are no more than five canvases.\n\n" +
                                   viewer.NameIn("d.bmp") + L"\nThere are no more than five canvases.");
}

TEST_CASE("several problems come in one message, and the good file between them is shown")
{
    TestViewer viewer;
    std::ofstream(viewer.Folder.Path("text.png")) << "no picture";
    viewer.Session.OpenFiles(
        {viewer.NameIn("none.bmp"), viewer.MakePicture("good.bmp"), viewer.NameIn("text.png")});
    REQUIRE(viewer.Reports.size() == 1);
    CHECK(viewer.Reports[0] == viewer.NameIn("none.bmp") + L"\nThe file does not exist.\n\n" +
                                   viewer.NameIn("text.png") +
                                   L"\nThis file is not a picture that can be read.");
    CHECK(gCVSGetFileType(0) == FileTypeNone);
    CHECK(viewer.Session.FileNameOf(1) == L"good.bmp");
    CHECK(viewer.RecentFiles == std::vector{viewer.NameIn("good.bmp")});
}

TEST_CASE("a file that cannot be read leaves the name of what the canvas shows")
{
    TestViewer viewer;
    viewer.Session.OpenFiles({viewer.MakePicture("good.bmp")});
    std::ofstream(viewer.Folder.Path("text.png")) << "no picture";
    viewer.Session.OpenFiles({viewer.NameIn("text.png")});
    CHECK(viewer.Session.FileNameOf(0) == L"good.bmp");
    CHECK(gCVSGetCanvasWidth(0) == 60);
}

TEST_CASE("cancelling the dialog of a file changes and reports nothing")
{
    TestViewer viewer;
    viewer.Session.OpenFiles({viewer.MakePicture("good.bmp")});
    viewer.Read = [](int, const std::function<void()>&) { return false; };
    viewer.Session.OpenFiles({viewer.MakePicture("other.bmp", 20, 20)});
    CHECK(viewer.Session.FileNameOf(0) == L"good.bmp");
    CHECK(gCVSGetCanvasWidth(0) == 60);
    CHECK(viewer.RecentFiles == std::vector{viewer.NameIn("good.bmp")});
    CHECK(viewer.Reports.empty());
}

TEST_CASE("too little memory for a file is reported, and the next file opens")
{
    TestViewer viewer;
    viewer.Read = [](int canvas, const std::function<void()>& read) {
        if (canvas == 0)
            throw std::bad_alloc();
        read();
        return true;
    };
    viewer.Session.OpenFiles({viewer.MakePicture("a.bmp"), viewer.MakePicture("b.bmp")});
    REQUIRE(viewer.Reports.size() == 1);
    CHECK(viewer.Reports[0] == viewer.NameIn("a.bmp") + L"\nThere is not enough memory for this image.");
    CHECK(viewer.Session.FileNameOf(1) == L"b.bmp");
}

TEST_CASE("too little memory for a command is reported, and the viewer goes on")
{
    TestViewer viewer;
    viewer.Session.OpenFiles({viewer.MakePicture("a.bmp")});
    viewer.Answer = [](RoutineQuestion&) -> bool { throw std::bad_alloc(); };
    viewer.Session.Carry(Command::Gauss);
    CHECK(viewer.Reports == std::vector<std::wstring>{L"There is not enough memory for this."});
    CHECK_FALSE(viewer.Session.RoutineRuns());
    viewer.Answer = Confirm;
    viewer.Session.Carry(Command::Gauss);
    CHECK(viewer.Session.RoutineRuns());
    CHECK(viewer.Finish());
}

TEST_CASE("while a routine runs its own canvas takes no file, the others do")
{
    TestViewer viewer;
    viewer.Session.SelectCanvas(3);
    viewer.Session.OpenFiles({viewer.MakePicture("a.bmp", 1000, 800)});
    viewer.Answer = ConfirmLong;
    viewer.Session.Carry(Command::Gauss);
    REQUIRE(viewer.Session.RoutineRuns());
    viewer.Session.OpenFiles({viewer.MakePicture("b.bmp", 20, 20), viewer.MakePicture("c.bmp", 30, 20)});
    REQUIRE(viewer.Session.RoutineRuns());
    CHECK(viewer.Reports == std::vector{viewer.NameIn("b.bmp") +
                                        L"\nA routine works on this canvas. Press Esc to stop it first."});
    CHECK(viewer.Session.FileNameOf(3) == L"a.bmp");
    CHECK(viewer.Session.FileNameOf(4) == L"c.bmp");
    CHECK(viewer.Session.IsEnabled(Command::Open));
    CHECK(viewer.Session.IsEnabled(Command::CancelRoutine));
    CHECK_FALSE(viewer.Session.IsEnabled(Command::Gauss));
    CHECK_FALSE(viewer.Session.IsEnabled(Command::UndoRoutine));
    viewer.Session.Carry(Command::CancelRoutine);
    REQUIRE(viewer.Finish());
    CHECK(viewer.Statuses.back() == L"Gaussian smoothing: cancelled");
    CHECK_FALSE(viewer.Session.IsEnabled(Command::CancelRoutine));
    CHECK(viewer.Session.IsEnabled(Command::Gauss));
    CHECK(gCVSGetFileType(3) == FileTypeByte);
}

TEST_CASE("a routine shows its steps and its result, which undo takes back")
{
    TestViewer viewer;
    viewer.Session.OpenFiles({viewer.MakePicture("a.bmp")});
    viewer.Answer = Confirm;
    viewer.Session.Carry(Command::Convolve);
    CHECK(viewer.Statuses.back() == L"Convolution ...");
    REQUIRE(viewer.Finish());
    CHECK(std::count(viewer.Statuses.begin(), viewer.Statuses.end(), L"Convolution: step 0 of 1") == 1);
    CHECK(viewer.Statuses.back() == L"Convolution: done");
    CHECK(viewer.Repainted.back() == 0);
    CHECK(gCVSGetFileType(0) == FileTypeRaw);
    CHECK(viewer.Session.FileNameOf(0) == L"a.bmp");
    viewer.Session.Carry(Command::UndoRoutine);
    CHECK(gCVSGetFileType(0) == FileTypeByte);
}

TEST_CASE("the problem of a routine is reported, and its canvas stays")
{
    TestViewer viewer;
    viewer.Session.OpenFiles({viewer.MakePicture("a.bmp", 20, 20), viewer.MakePicture("b.bmp", 30, 30)});
    viewer.Answer = Confirm;
    viewer.Session.Carry(Command::MatrixProduct);    // of images whose sides do not match
    REQUIRE(viewer.Finish());
    REQUIRE(viewer.Reports.size() == 1);
    CHECK(viewer.Reports[0].back() == L'.');
    CHECK(viewer.Statuses.back().empty());
    CHECK(gCVSGetFileType(0) == FileTypeByte);
}

TEST_CASE("a result of another size fits the canvas, one of the same size keeps the view")
{
    TestViewer  viewer;
    HostCanvas& host = viewer.Canvases[3];    // its scale changes
    viewer.Session.SelectCanvas(3);
    viewer.Session.OpenFiles({viewer.MakePicture("a.bmp", 30, 20)});
    viewer.Answer = Confirm;
    viewer.Session.Carry(Command::Gauss);
    REQUIRE(viewer.Finish());
    CHECK(std::abs(ScaleShown(host) - 1.0) < 0.05);
    viewer.Answer = [](RoutineQuestion& question) {
        question.Values = {15.0, 10.0, 0.0};    // of Resize: width, height
        return true;
    };
    viewer.Session.Carry(Command::Resize);
    REQUIRE(viewer.Finish());
    CHECK(gCVSGetCanvasWidth(3) == 15);
    CHECK(host.Region().Width() <= TestViewer::Width);
    CHECK((host.Region().Width()) * 1.2 >= TestViewer::Width - 2);
}

TEST_CASE("a whole image stays in sight when its area changes, until the person moves it")
{
    TestViewer  viewer;
    HostCanvas& host = viewer.Canvases[3];
    viewer.Session.SelectCanvas(3);
    viewer.Session.OpenFiles({viewer.MakePicture("large.bmp", 600, 400)});    // zoomed out to fit
    host.Resize(240, 180);
    viewer.Session.OnAreaChanged(3);
    CHECK((host.Region().Width()) * 1.2 >= 238);
    CHECK(viewer.Repainted.back() == 3);
    viewer.Session.OnViewDragged(3);
    const CRect before = host.Region();
    host.Resize(120, 90);
    viewer.Session.OnAreaChanged(3);
    CHECK(std::abs(host.Region().Width() - before.Width()) <= 1);

    viewer.Session.Carry(Command::FitImage);
    CHECK(host.Region().Width() <= 120);
    host.Resize(60, 45);
    viewer.Session.OnAreaChanged(3);
    CHECK(host.Region().Width() <= 60);
}

TEST_CASE("a dialog starts with the last values, but for what follows the size of the image")
{
    TestViewer viewer;
    viewer.Session.SelectCanvas(3);
    viewer.Session.OpenFiles({viewer.MakePicture("a.bmp", 30, 20)});
    std::vector<double> offered;
    viewer.Answer = [&](RoutineQuestion& question) {
        offered = question.Values;
        question.Values = {12.0, 8.0, 1.0};    // of Resize: width, height, one processor
        return true;
    };
    viewer.Session.Carry(Command::Resize);
    REQUIRE(viewer.Finish());
    CHECK(offered == std::vector{15.0, 10.0, 0.0});
    CHECK(viewer.Values.size() == 1);
    viewer.Session.Carry(Command::Resize);
    REQUIRE(viewer.Finish());
    CHECK(offered == std::vector{6.0, 4.0, 1.0});
}

TEST_CASE("kept values that a routine does not take any more are brought within its limits")
{
    TestViewer viewer;
    viewer.Session.OpenFiles({viewer.MakePicture("a.bmp")});
    const Routine& gauss = *FindRoutine(Command::Gauss);
    viewer.Values[{gauss.Title, gauss.Parameters[0].Name}] = 1e9;
    viewer.Values[{gauss.Title, gauss.Parameters[1].Name}] = std::nan("");
    viewer.Values[{gauss.Title, gauss.Parameters[2].Name}] = 2.75;
    std::vector<double> offered;
    viewer.Answer = [&](RoutineQuestion& question) {
        offered = question.Values;
        return false;
    };
    viewer.Session.Carry(Command::Gauss);
    CHECK(offered == std::vector{63.0, 1.5, 2.0});
    CHECK_FALSE(viewer.Session.RoutineRuns());
    CHECK(viewer.Values.size() == 3);    // a cancelled dialog keeps nothing
}

TEST_CASE("a routine of two images offers all canvases with one, and first another than the current")
{
    TestViewer viewer;
    viewer.Session.SelectCanvas(3);
    viewer.Session.OpenFiles({viewer.MakePicture("a.bmp")});
    RoutineQuestion asked;
    viewer.Answer = [&](RoutineQuestion& question) {
        asked = question;
        return true;
    };
    viewer.Session.Carry(Command::Concatenate);
    REQUIRE(viewer.Finish());
    REQUIRE(asked.Sources.size() == 1);
    CHECK(asked.Second == 3);    // there is no other
    CHECK(asked.Sources[0].Canvas == 3);
    CHECK(asked.Sources[0].Name == L"Canvas 4  a.bmp");

    viewer.Session.SelectCanvas(4);
    viewer.Session.OpenFiles({viewer.MakePicture("b %1.bmp", 20, 20)});
    viewer.Session.SelectCanvas(3);
    viewer.Session.Carry(Command::Concatenate);
    REQUIRE(viewer.Finish());
    REQUIRE(asked.Sources.size() == 2);
    CHECK(asked.Sources[0].Canvas == 3);
    CHECK(asked.Sources[1].Name == L"Canvas 5  b %1.bmp");
    CHECK(asked.Second == 4);
}

TEST_CASE("a routine of one image asks for no second one, and one without parameters asks nothing")
{
    TestViewer viewer;
    viewer.Session.OpenFiles({viewer.MakePicture("a.bmp")});
    int asked = 0;
    viewer.Answer = [&](RoutineQuestion& question) {
        ++asked;
        CHECK(question.Sources.empty());
        CHECK(question.Second == -1);
        return false;
    };
    viewer.Session.Carry(Command::Gauss);
    CHECK(asked == 1);
    viewer.Session.Carry(Command::LabelImage);
    CHECK(asked == 1);
    CHECK(viewer.Session.RoutineRuns());
    CHECK(viewer.Finish());
}

TEST_CASE("the session can end while a routine runs, and what the worker posted does no harm")
{
    TestViewer viewer;
    auto       session = std::make_unique<ViewerSession>(viewer.Window(), viewer.Settings());
    session->SelectCanvas(3);
    session->OpenFiles({viewer.MakePicture("a.bmp", 1000, 800)});
    viewer.Answer = ConfirmLong;
    session->Carry(Command::Gauss);
    REQUIRE(session->RoutineRuns());
    const std::size_t before = viewer.Statuses.size();
    session.reset();
    viewer.Posted.Run();
    CHECK(viewer.Statuses.size() == before);
}

TEST_CASE("choices of canvas and tiling reach the window and exclude each other")
{
    TestViewer viewer;
    CHECK(viewer.Session.IsChecked(Command::Canvas1));
    CHECK(viewer.Session.IsChecked(Command::OneCanvas));
    viewer.Session.Carry(Command::Canvas4);
    CHECK(viewer.Arranged == 1);
    CHECK(viewer.Session.Current() == 3);
    CHECK(viewer.Session.IsChecked(Command::Canvas4));
    CHECK_FALSE(viewer.Session.IsChecked(Command::Canvas1));
    viewer.Session.Carry(Command::TileCanvases);
    CHECK(viewer.Arranged == 2);
    CHECK(viewer.Session.IsTiled());
    CHECK(viewer.Session.IsChecked(Command::TileCanvases));
    CHECK_FALSE(viewer.Session.IsChecked(Command::OneCanvas));
    viewer.Session.SelectCanvas(3);    // is current
    viewer.Session.SelectCanvas(5);    // is none
    viewer.Session.SelectCanvas(-1);
    CHECK(viewer.Arranged == 2);
    CHECK(viewer.Session.Current() == 3);
}

TEST_CASE("a command that is not enabled does nothing")
{
    TestViewer viewer;
    CHECK_FALSE(viewer.Session.IsEnabled(Command::DrawPolygon));
    viewer.Session.Carry(Command::DrawPolygon);
    viewer.Session.Carry(static_cast<Command>(0));
    CHECK(viewer.Statuses.empty());
    CHECK(viewer.Repainted.empty());
}

TEST_CASE("drawing and measuring leave their hint in the status bar, other commands clear it")
{
    TestViewer viewer;
    viewer.Session.OpenFiles({viewer.MakePicture("a.bmp")});
    viewer.Session.Carry(Command::DrawPolygon);
    CHECK(viewer.Statuses.back() == L"Hold Shift and click each corner.");
    viewer.Session.Carry(Command::MeasureLength);
    CHECK(viewer.Statuses.back() == L"Hold Shift and drag from end to end.");
    viewer.Session.Carry(Command::FastDisplay);
    CHECK(viewer.Statuses.back().empty());
    CHECK_FALSE(viewer.Session.IsChecked(Command::FastDisplay));
    viewer.Session.Carry(Command::FastDisplay);
    CHECK(viewer.Repainted.back() == 0);
}

TEST_CASE("keys that delete or overwrite reach a canvas only when asked for")
{
    TestViewer viewer;
    for (const char key : {'C', 'I', 'R', 'T'})
        CHECK_FALSE(viewer.Session.ForwardsKey(static_cast<unsigned int>(key)));
    for (const char key : {'A', 'D', 'E', 'X', '\t'})
        CHECK(viewer.Session.ForwardsKey(static_cast<unsigned int>(key)));
    viewer.Session.Carry(Command::KeysForAll);
    CHECK(viewer.Session.IsChecked(Command::KeysForAll));
    for (const char key : {'C', 'I', 'R', 'T'})
        CHECK(viewer.Session.ForwardsKey(static_cast<unsigned int>(key)));
    viewer.Session.Carry(Command::KeysForAll);
    CHECK_FALSE(viewer.Session.IsChecked(Command::KeysForAll));
    CHECK_FALSE(viewer.Session.ForwardsKey('T'));
}

TEST_CASE("Quit closes the window, and asks it for nothing after that")
{
    TestViewer viewer;
    viewer.Session.Carry(Command::Quit);
    CHECK(viewer.Closed == 1);
    CHECK(viewer.Repainted.empty());
}

TEST_CASE("files of the dialog open on the current canvas and come first among the recent ones")
{
    TestViewer viewer;
    viewer.Chosen = {viewer.MakePicture("a.bmp")};
    viewer.Session.Carry(Command::Open);
    viewer.Chosen = {viewer.NameIn("x/../b.bmp")};
    viewer.MakePicture("b.bmp");
    viewer.Session.Carry(Command::Open);
    CHECK(viewer.Session.FileOf(0) == viewer.NameIn("b.bmp"));
    CHECK(viewer.Session.RecentFiles() == std::vector{viewer.NameIn("b.bmp"), viewer.NameIn("a.bmp")});
    CHECK(viewer.RecentFiles == viewer.Session.RecentFiles());
    std::filesystem::remove(viewer.Folder.Path("a.bmp"));
    viewer.Session.OpenFiles({viewer.NameIn("a.bmp")});
    CHECK(viewer.RecentFiles == std::vector{viewer.NameIn("b.bmp")});
    viewer.Session.ClearRecentFiles();
    CHECK(viewer.RecentFiles.empty());
    viewer.Chosen.clear();    // the person cancels
    viewer.Session.Carry(Command::Open);
    CHECK(viewer.Session.FileNameOf(0) == L"b.bmp");
}

TEST_CASE("a window that brings nothing but Post can be driven")
{
    HostCanvas        host(0, 60, 40);
    const TestDialogs dialogs(CancelledDialogs());
    PostedCalls       posted;
    ViewerWindow      window;
    window.Post = [&](std::function<void()> call) { posted.Add(std::move(call)); };
    ViewerSession session(window, {});
    for (const CommandEntry& entry : AllCommands())
        session.Carry(entry.Id);
    session.OpenFiles({L"none.bmp"});
    CHECK_FALSE(session.RoutineRuns());
    CHECK(session.RecentFiles().empty());
}

TEST_CASE("choosing a language gives the session, the canvases and the settings that language")
{
    TestViewer viewer;
    viewer.Session.Speak(Language::English);
    CHECK(viewer.Languages.empty());    // nobody has chosen it
    CHECK(viewer.Session.IsChecked(Command::SpeakEnglish));
    viewer.Session.Carry(Command::SpeakChinese);
    CHECK(viewer.Session.IsChecked(Command::SpeakChinese));
    CHECK_FALSE(viewer.Session.IsChecked(Command::SpeakEnglish));
    CHECK(viewer.Languages == std::vector{Language::Chinese});
    CHECK(viewer.TextsShown == 2);
    char name[8] = "";
    CHECK(vostel_canvas_language(3, name, sizeof name, nullptr) == VOSTEL_OK);
    CHECK(std::string(name) == "zh");
    viewer.Session.OpenFiles({viewer.NameIn("none.bmp")});
    CHECK(viewer.Reports ==
          std::vector{viewer.NameIn("none.bmp") + L"\n\u6587\u4ef6\u4e0d\u5b58\u5728\u3002"});
    viewer.Session.Carry(Command::SpeakEnglish);
    CHECK(vostel_canvas_language(3, name, sizeof name, nullptr) == VOSTEL_OK);
    CHECK(std::string(name) == "en");
    viewer.Session.Speak(Language::Chinese);    // as the canvases of other tests are
}
