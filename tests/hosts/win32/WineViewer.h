#pragma once

#include "hosts/screen/XScreen.h"
#include "support/TempFolder.h"

#include <functional>
#include <initializer_list>
#include <string>
#include <vector>

// The viewer for Windows under Wine, with the test's screen as its desktop and without settings of an earlier
// run. Run by in-a-window, which names Wine and its prefix in the environment. All windows of the viewer are
// one window of the screen, so that what happens is known by how the screen changes.
class WineViewer {
public:
    // Starts it with files of the test, which follow its options, and waits until the screen shows a picture.
    WineViewer(const std::vector<std::string>& files, const Picture& shown,
               const std::vector<std::string>& options = {});
    ~WineViewer();    // ends it the hard way if it still runs
    WineViewer(const WineViewer&) = delete;
    WineViewer& operator=(const WineViewer&) = delete;

    bool IsUp() const { return Up; }
    bool Quit();            // by its shortcut, without saving; false when it does not end
    bool QuitsUnasked();    // the same; false, too, when it asks something before

    // Sends events and waits until the screen has changed and rests again.
    void Act(const std::function<void()>& events);
    void Keys(std::initializer_list<const char*> chords);    // each one an act
    void FileCommand(const char* mnemonic);
    // Into the dialog that is up: the whole of its first fields, one after another, by Tab.
    void Fill(std::initializer_list<std::string> fields);
    void TypePath(const std::string& path);    // into a file dialog, and confirms it

    // What can be read in its windows now, as WindowTexts.cpp writes it.
    static std::vector<std::string> Texts();
    // Whether a line of the kind is there, with the words in its text, or comes.
    static bool Says(const std::string& kind, const std::string& words);

    // What the viewer keeps between runs, as UTF-8.
    static std::string Settings(const char* file);

private:
    int  Starter = -1;
    bool Up = false;
};

// Runs a program under Wine to its end. Its exit code, and what it wrote to standard output.
int RunUnderWine(const std::vector<std::string>& words, std::string* output = nullptr);

std::string WindowsPath(const std::string& path);

// A gray page with a frame in a color that nothing else on the screen has.
inline constexpr unsigned Magenta = 0xFF00FF;
Picture                   Page(int width, int height);

// A file that is complete: it exists, is not empty and grows no more.
bool WaitForFile(const std::string& path);

// A viewer that shows a page of 400 x 300 pixels at the scale of 1.
struct PageOnScreen : TempFolder {
    static constexpr int Width = 400, Height = 300;

    Picture     Shown = Page(Width, Height);
    std::string PagePath = Path("page.png");
    bool        Written = Save(Shown, PagePath);
    WineViewer  Viewer;
    Place       Origin;

    explicit PageOnScreen(const std::vector<std::string>& options = {});

    Place At(int x, int y) const { return {Origin.X + x, Origin.Y + y}; }
    void  Drag(Place from, Place to);
    void  ShiftDrag(Place from, Place to);
    void  ShiftClicks(std::initializer_list<Place> places);

    // Saves the labels by the menu. 32-bit integers, the bottom row of the image first.
    std::vector<int> SavedLabels(const char* name);
    static int       LabelAt(const std::vector<int>& labels, int x, int y);
};
