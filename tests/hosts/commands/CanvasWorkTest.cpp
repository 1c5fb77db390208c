// Undo, sessions and the table of measures of a viewer around a session.

#include "commands/CanvasWork.h"

#include "commands/FilePaths.h"
#include "commands/Utf8Text.h"
#include "hosts/commands/TestViewer.h"

#include <vostel.h>

#include <algorithm>
#include <fstream>
#include <iterator>

using namespace vostel::viewer;

namespace {

// A viewer with a picture on its first canvas, and a person who answers.
struct WorkingViewer : TestViewer {
    std::vector<std::wstring> Asked;    // sentences of AskToKeep
    std::vector<SaveQuestion> Offered;
    std::wstring              SavePath;
    Keeping                   Kept = Keeping::Stay;
    std::vector<MeasureTable> Shown;

    ViewerSession Works{WorkWindow(), Settings()};

    WorkingViewer()
    {
        Works.OpenFiles({MakePicture("page.bmp", 100, 80)});
        REQUIRE(Reports.empty());
    }

    ViewerWindow WorkWindow()
    {
        ViewerWindow window = Window();
        window.AskSavePath = [this](const SaveQuestion& question) {
            Offered.push_back(question);
            return SavePath;
        };
        window.AskToKeep = [this](const std::wstring& sentence) {
            Asked.push_back(sentence);
            return Kept;
        };
        window.ShowMeasures = [this](int, const MeasureTable& measures) { Shown.push_back(measures); };
        return window;
    }

    void DrawRectangle()
    {
        Works.Carry(Command::DrawRectangle);
        gCVSOnLButtonDown(0, MK_LBUTTON | MK_SHIFT, CPoint(30, 20));
        gCVSOnMouseMove(0, MK_LBUTTON | MK_SHIFT, CPoint(70, 60));
        gCVSOnLButtonUp(0, MK_SHIFT, CPoint(70, 60));
    }
    std::size_t Objects(int canvas = 0) const
    {
        std::size_t count = 0;
        vostel_object_list(canvas, nullptr, 0, &count);
        return count;
    }
    void Call(const std::string& name)    // the topmost object
    {
        std::size_t  count = 0;
        VostelObject object = 0;
        REQUIRE(vostel_object_list(0, &object, 1, &count) == VOSTEL_OK);
        REQUIRE(vostel_object_set_name(0, object, name.c_str()) == VOSTEL_OK);
    }
};

std::string BytesOf(const std::wstring& path)
{
    std::ifstream stream(std::filesystem::path(path), std::ios::binary);
    return std::string((std::istreambuf_iterator<char>(stream)), std::istreambuf_iterator<char>());
}

}

TEST_CASE("what is drawn is taken back and brought again, and the menu says what")
{
    WorkingViewer  viewer;
    ViewerSession& session = viewer.Works;
    CHECK_FALSE(session.IsEnabled(Command::Undo));
    CHECK_FALSE(session.IsEnabled(Command::Redo));
    CHECK(session.TextOf(Command::Undo) == L"&Undo");
    viewer.DrawRectangle();
    const std::string drawn = DrawnOn(0);
    REQUIRE(viewer.Objects() == 1);
    while (session.IsEnabled(Command::Undo)) {
        CHECK(session.TextOf(Command::Undo).find(L"rectangle") != std::wstring::npos);
        session.Speak(Language::Chinese);
        CHECK(session.TextOf(Command::Undo).find(L"\u77e9\u5f62") != std::wstring::npos);
        session.Speak(Language::English);
        session.Carry(Command::Undo);
    }
    CHECK(viewer.Objects() == 0);
    while (session.IsEnabled(Command::Redo)) {
        CHECK(session.TextOf(Command::Redo).rfind(L"&Redo: ", 0) == 0);
        session.Carry(Command::Redo);
    }
    CHECK(DrawnOn(0) == drawn);
    CHECK(session.TextOf(Command::FitImage) == L"&Whole image");
}

TEST_CASE("each canvas has steps of its own, and another picture begins anew")
{
    WorkingViewer viewer;
    viewer.DrawRectangle();
    viewer.Works.SelectCanvas(1);
    CHECK_FALSE(viewer.Works.IsEnabled(Command::Undo));
    viewer.Works.SelectCanvas(0);
    CHECK(viewer.Works.IsEnabled(Command::Undo));
    viewer.Kept = Keeping::Discard;
    viewer.Works.OpenFiles({viewer.MakePicture("other.bmp", 50, 50)});
    CHECK(viewer.Asked.size() == 1);
    CHECK_FALSE(viewer.Works.IsEnabled(Command::Undo));
}

TEST_CASE("a session saves the objects with their picture and opens on another canvas")
{
    WorkingViewer  viewer;
    ViewerSession& session = viewer.Works;
    viewer.DrawRectangle();
    viewer.SavePath = viewer.NameIn("work.vostel.json");
    session.Carry(Command::SaveSession);
    REQUIRE(viewer.Reports.empty());
    REQUIRE(viewer.Offered.size() == 1);
    CHECK(viewer.Offered[0].Name == L"page.bmp.vostel.json");
    CHECK(viewer.Statuses.back() == L"Saved work.vostel.json");
    CHECK(viewer.RecentFiles.front() == viewer.SavePath);
    CHECK(session.MayClose());
    CHECK(viewer.Asked.empty());

    session.SelectCanvas(2);
    session.OpenFiles({viewer.SavePath});
    CHECK(viewer.Reports.empty());
    CHECK(viewer.Objects(2) == 1);
    CHECK(gCVSGetCanvasWidth(2) == 100);
    CHECK(session.FileNameOf(2) == L"work.vostel.json");
    CHECK_FALSE(session.IsEnabled(Command::Undo));

    // The same file again, without a question.
    session.SelectCanvas(0);
    viewer.DrawRectangle();
    session.Carry(Command::SaveSession);
    CHECK(viewer.Offered.size() == 1);
    session.Carry(Command::SaveSessionAs);
    CHECK(viewer.Offered.size() == 2);
    CHECK(viewer.Offered[1].Name == L"work.vostel.json");
}

TEST_CASE("a session that cannot be read or written is reported with its path, and nothing is lost")
{
    WorkingViewer  viewer;
    ViewerSession& session = viewer.Works;
    viewer.DrawRectangle();
    viewer.SavePath = viewer.NameIn("no folder/work.json");
    session.Carry(Command::SaveSession);
    REQUIRE(viewer.Reports.size() == 1);
    CHECK(viewer.Reports[0].rfind(viewer.SavePath + L"\n", 0) == 0);
    CHECK(viewer.Reports[0].size() > viewer.SavePath.size() + 10);
    CHECK_FALSE(session.MayClose());

    const std::wstring broken = viewer.NameIn("broken.vostel.json");
    std::ofstream(std::filesystem::path(broken)) << "{ this is no session";
    viewer.Kept = Keeping::Discard;
    session.OpenFiles({broken});
    REQUIRE(viewer.Reports.size() == 2);
    CHECK(viewer.Reports[1].find(L"broken.vostel.json") != std::wstring::npos);
    CHECK(viewer.Reports[1].find(L"\nThis is not a session that can be read.\n") != std::wstring::npos);
    session.Speak(Language::Chinese);
    session.OpenFiles({broken});
    REQUIRE(viewer.Reports.size() == 3);
    CHECK(viewer.Reports[2].find(L"\n\u8be5\u6587\u4ef6\u4e0d\u662f") != std::wstring::npos);
    session.Speak(Language::English);
    CHECK(viewer.Objects() == 1);
    CHECK(session.FileNameOf(0) == L"page.bmp");
    CHECK(session.IsEnabled(Command::Undo));
}

TEST_CASE("objects that are in no session go only when the person says so")
{
    WorkingViewer  viewer;
    ViewerSession& session = viewer.Works;
    CHECK(session.MayClose());
    viewer.DrawRectangle();
    session.SelectCanvas(3);
    CHECK_FALSE(session.MayClose());
    CHECK(session.Current() == 0);    // what is asked about is seen
    REQUIRE(viewer.Asked.size() == 1);
    CHECK(viewer.Asked[0].find(L"canvas 1") != std::wstring::npos);

    session.OpenFiles({viewer.MakePicture("other.bmp", 50, 50)});
    CHECK(viewer.Objects() == 1);
    CHECK(gCVSGetCanvasWidth(0) == 100);
    CHECK(viewer.Reports.empty());

    viewer.Kept = Keeping::Save;    // but the dialog is cancelled
    CHECK_FALSE(session.MayClose());
    viewer.SavePath = viewer.NameIn("kept.vostel.json");
    CHECK(session.MayClose());
    CHECK(BytesOf(viewer.SavePath).find("rectangle") != std::string::npos);
    viewer.Asked.clear();
    while (session.IsEnabled(Command::Undo))
        session.Carry(Command::Undo);
    CHECK_FALSE((session.MayClose() && viewer.Asked.empty()));    // the session has what was taken back
}

TEST_CASE("the table has a row for each object and the columns that any of them fills")
{
    WorkingViewer viewer;
    viewer.Works.Carry(Command::MeasureTable);
    REQUIRE(viewer.Shown.size() == 1);
    CHECK(viewer.Shown[0].Rows.empty());
    viewer.DrawRectangle();
    viewer.Call("a \"quoted\"\tname\nin two lines");
    viewer.Works.Carry(Command::MeasureTable);
    const MeasureTable& table = viewer.Shown.back();
    const auto          cell = [&table](const wchar_t* title) {
        const auto found = std::find(table.Titles.begin(), table.Titles.end(), title);
        REQUIRE(found != table.Titles.end());
        return table.Rows.at(0).at(static_cast<std::size_t>(found - table.Titles.begin()));
    };
    REQUIRE(table.Rows.size() == 1);
    CHECK(table.Rows[0].size() == table.Titles.size());
    CHECK(cell(L"Name") == L"a \"quoted\"\tname\nin two lines");
    CHECK(cell(L"Kind") == L"rectangle");
    CHECK(cell(L"Mean") == L"100");
    CHECK(std::find(table.Titles.begin(), table.Titles.end(), L"Angle") == table.Titles.end());
    for (const std::wstring& title : table.Titles)
        CHECK(title[0] >= L'A');    // no name of the library is left
    CHECK(std::none_of(table.Titles.begin(), table.Titles.end(),
                       [](const std::wstring& title) { return title[0] >= L'a'; }));

    viewer.Works.Speak(Language::Chinese);
    viewer.Works.Carry(Command::MeasureTable);
    CHECK(viewer.Shown.back().Titles[1] == L"\u540d\u79f0");
    CHECK(viewer.Shown.back().Rows[0][2] == L"\u77e9\u5f62");
}

TEST_CASE("the table is saved in the form that the ending says, and a failure leaves what was there")
{
    WorkingViewer viewer;
    viewer.DrawRectangle();
    for (const auto& [name, begin] :
         {std::pair("m.csv", "object,name,"), std::pair("m.TSV", "object\tname\t"),
          std::pair("m.json", "[\n{\"object\":")}) {
        viewer.SavePath = viewer.NameIn(name);
        viewer.Works.SaveMeasureTable(0);
        CHECK(BytesOf(viewer.SavePath).rfind(begin, 0) == 0);
        CHECK(viewer.Statuses.back() == L"Saved " + WideOf(name));
    }
    CHECK(viewer.Reports.empty());
    viewer.SavePath = viewer.NameIn("no folder/m.csv");
    viewer.Works.SaveMeasureTable(0);
    REQUIRE(viewer.Reports.size() == 1);
    CHECK(viewer.Reports[0] == viewer.SavePath + L"\nThe file cannot be written: there is no such folder.");
    // A name beside the wanted one may be someone's.
    const std::wstring other = viewer.NameIn("m.csv~");
    std::ofstream(PathOf(other.c_str())) << "of someone";
    viewer.SavePath = viewer.NameIn("m.csv");
    viewer.Works.SaveMeasureTable(0);
    CHECK(BytesOf(other) == "of someone");
    viewer.SavePath.clear();    // cancelled
    viewer.Works.SaveMeasureTable(0);
    CHECK(viewer.Reports.size() == 1);
}

TEST_CASE(
    "the length of a pixel that the person gives is the table's too, and a cancelled one changes nothing")
{
    WorkingViewer viewer;
    viewer.DrawRectangle();
    bool          isGiven = false;
    TessikDialogs dialogs;
    dialogs.ImaGeneralPara = [&](tagZEKImaGeneralPara& para, CString&, CString&) {
        if (isGiven)
            viewer.Works.TakePixelLength(0.5);
        para.Value = L"0.5";
        return isGiven;
    };
    const TestDialogs installed(dialogs);
    const auto        cell = [&viewer](const wchar_t* title) {
        const MeasureTable table = MeasuresOf(viewer.Works.Current());
        const auto         found = std::find(table.Titles.begin(), table.Titles.end(), title);
        REQUIRE(found != table.Titles.end());
        return table.Rows.at(0)[static_cast<std::size_t>(found - table.Titles.begin())];
    };
    const double area = std::stod(cell(L"area"));
    viewer.Works.Carry(Command::MeasureScale);
    CHECK(cell(L"unit") == L"px");
    isGiven = true;
    viewer.Works.Carry(Command::MeasureScale);
    CHECK(cell(L"unit") == L"mm");
    CHECK(std::stod(cell(L"area")) == area / 4.0);
    isGiven = false;
    viewer.Works.Carry(Command::MeasureScale);    // what was given before is not given again
    viewer.Works.Carry(Command::Undo);
    CHECK(cell(L"unit") == L"px");
}
