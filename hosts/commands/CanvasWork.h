#pragma once

// What a person has done on a canvas: steps to take back, objects to keep as a session, measures as a table.

#include <string>
#include <vector>

namespace vostel::viewer {

// From now on edits of the canvas can be taken back; those before cannot.
void BeginHistory(int canvas);

enum class Step : int { Undo = -1, Redo = 1 };

// The English name of what a step would take back or bring again; empty for none.
std::string StepName(int canvas, Step step);
void        Take(int canvas, Step step);

// All objects as text; equal texts are equal objects.
std::string DrawnOn(int canvas);

// "NAME.vostel.json" and other JSON files.
bool IsSessionFile(const std::wstring& path);

// What is wrong, or nothing: a sentence in English, to be translated, and in the next line the library's
// words. A session that is not opened leaves the canvas as it is, and a file that is not written what was
// there.
std::string OpenSession(int canvas, const std::wstring& path);
std::string SaveSession(int canvas, const std::wstring& path);

// Every object with the measures that any of them has, as cells. Titles are the library's names of measures.
struct MeasureTable {
    std::vector<std::wstring>              Titles;
    std::vector<std::vector<std::wstring>> Rows;
};
MeasureTable MeasuresOf(int canvas);

// The same as UTF-8 for other programs.
std::string MeasuresAs(int canvas, const char* format);    // "csv", "tsv", "json"
// By the ending of the path, CSV for others. What is wrong, in English, or nothing.
std::string SaveMeasures(int canvas, const std::wstring& path);

}
