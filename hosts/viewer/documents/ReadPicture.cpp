#include "documents/ReadPicture.h"

#include "documents/FileReasons.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <algorithm>

namespace vostel::viewer {

ReadPicture::ReadPicture(const QString& file, const CanvasInfo& now, const std::string& language)
    : Sources(PagesOfFile(file))
{
    try {
        auto canvas = std::make_unique<Canvas>(std::max(now.width, 1), std::max(now.height, 1));
        canvas->set_pixel_ratio(now.pixel_ratio);
        canvas->set_language(language);
        ShowPage(*canvas, Sources.front(), 0);
        canvas->view_fit();
        canvas->frame_render();    // what the first frame takes is done before the window needs it
        Made = std::move(canvas);
        Ended = Done(QCoreApplication::translate("vostel::viewer::Document", "Opened %1")
                         .arg(QFileInfo(file).fileName()));
    } catch (const Error& error) {
        Ended = Failed(WhyNotOpened(error, file));
    }
}

}
