#pragma once

#include <VostelObj.h>

#include <QString>

namespace vostel::widget {

// Texts between the toolkit and the library.
inline QString ToQt(const CString& text)
{
    return QString::fromWCharArray(text.GetString(), text.GetLength());
}

inline CString FromQt(const QString& text)
{
    return CString(text.toStdWString().c_str());
}

}
