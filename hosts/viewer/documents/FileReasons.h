#pragma once

#include <QString>
#include <vostel.hpp>

namespace vostel::viewer {

// Why a file was refused, in the language of the interface, with its path: what the library says, and what
// the file itself tells beyond that, such as its kind or that it is cut short.
QString WhyNotOpened(const Error& error, const QString& path);

// Why a file was not written, with its path: what its folder and its disk tell, else what the call said.
QString WhyNotWritten(const Error& error, const QString& path);
QString WhyNotWritten(const QString& said, const QString& path);

// A text with what vostel_last_message() has to say after a session or regions were saved or opened.
QString WithRemarks(const QString& text);

}
