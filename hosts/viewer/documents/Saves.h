#pragma once

#include "documents/Outcome.h"

#include <QStringList>

#include <vector>

class QWidget;

namespace vostel::viewer {

class Document;

// A format of a kind of save.
struct SaveFormat {
    const char* Filter;    // "PNG" ..., in English, to be translated in the context "Saves"
    const char* Ending;    // without the dot; several are separated by blanks, the first is the default
    const char* Id;        // what the function takes
};

struct SaveRequest {
    QString     Path;
    const char* Format = "";
    double      Scale = 1.0;
};

// What can be saved of a canvas beside its session: a line of the table of all saves.
struct SaveKind {
    const char*             Id;          // "picture"
    const char*             Title;       // for a menu, in English, to be translated in the context "Saves"
    const char*             Suffix;      // behind the picture's name in the name that is suggested
    bool                    HasScale;    // whether it can be saved larger or smaller
    std::vector<SaveFormat> Formats;
    bool (*Applies)(const Document& document);
    Outcome (*Save)(Document& document, const SaveRequest& request);
};

namespace Saves {

const std::vector<SaveKind>& All();
const SaveKind&              Of(const char* id);

QStringList Filters(const SaveKind& kind);                                    // of a file dialog
QString     SuggestedPath(const Document& document, const SaveKind& kind);    // beside the picture

// The path with the filter's ending, unless it has one of the kind's.
QString WholePath(const SaveKind& kind, const QString& path, const QString& filter);

// Saves in the format of the path's ending, else of the filter; a path without a known ending gets the
// filter's. Returns "Saved NAME" with what a format could not hold, or the reason with the path.
Outcome Run(const SaveKind& kind, Document& document, const QString& path, const QString& filter,
            double scale = 1.0);

// The file dialog, with the scale where there is one, and the save.
Outcome Ask(const SaveKind& kind, Document& document, QWidget* parent);

}

}
