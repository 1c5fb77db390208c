#include "documents/PageReader.h"

#include "documents/FileReasons.h"

namespace vostel::viewer {

ReadPage ReadPageNow(const PageSource& source)
{
    try {
        auto page = std::make_shared<Canvas>(1, 1);
        ShowPage(*page, source, 0);
        return {std::move(page), QString()};
    } catch (const Error& error) {
        return {nullptr, WhyNotOpened(error, source.Path)};
    }
}

PageReader::PageReader()
{
    Thread.setMaxThreadCount(1);
}

PageReader::~PageReader()
{
    Thread.waitForDone();
}

void PageReader::Read(int index, const PageSource& source)
{
    Reading = true;
    Thread.start([this, index, source, generation = Generation] {
        const ReadPage page = ReadPageNow(source);
        QMetaObject::invokeMethod(
            this,
            [this, index, page, generation] {
                if (generation != Generation)
                    return;
                Reading = false;
                Q_EMIT read(index, page);
            },
            Qt::QueuedConnection);
    });
}

void PageReader::Drop()
{
    ++Generation;
    Reading = false;
}

}
