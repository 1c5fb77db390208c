#pragma once

#include <QString>

namespace vostel::viewer {

// How something that a person asked for ended.
struct Outcome {
    enum class Kind { Done, Failed, Cancelled };

    Kind Result = Kind::Done;
    QString
        Text;    // what was done with its warnings, or the reason with the path; empty of what was cancelled

    bool IsDone() const { return Result == Kind::Done; }
};

inline Outcome Done(const QString& text = QString())
{
    return {Outcome::Kind::Done, text};
}

inline Outcome Failed(const QString& reason)
{
    return {Outcome::Kind::Failed, reason};
}

inline Outcome Cancelled()
{
    return {Outcome::Kind::Cancelled, QString()};
}

}
