#pragma once

#include "process/Routine.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

namespace vostel::viewer {

// A routine with its values, one of a chain.
struct ChainStep {
    const Routine*      What = nullptr;
    std::vector<double> Values;
};

// What is done to each of many pictures.
struct BatchPlan {
    QStringList            Pictures;    // paths
    std::vector<ChainStep> Chain;       // empty: the pictures as they are
    QString                Folder;      // takes the results as TIFF; empty: none is kept
    QString                Session;     // whose objects are measured; empty: none
    QByteArray             Format = QByteArrayLiteral("csv");    // of the table: "csv", "tsv" or "json"
};

struct BatchResult {
    int         Done = 0;             // pictures without a failure
    QStringList Saved;                // paths
    QStringList Failures;             // with the path and the reason
    QByteArray  Table;                // of all measures, named by file; empty without a session
    bool        IsStopped = false;    // before the last picture
};

// The picture files of a folder whose names fit a pattern such as "*.png;*.tif", in natural order.
QStringList BatchPictures(const QString& folder, const QString& pattern);

// On any thread. A picture that fails is told and the rest goes on. No file is written over: where a name is
// taken, the result gets a number behind its own.
// @param tell the number of pictures that are through, before each
BatchResult RunBatch(const BatchPlan& plan, RunState& state, const std::function<void(int)>& tell);

// The path, or the first one of NAME-2, NAME-3 ... where there is nothing yet.
QString FreePath(const QString& path);

}
