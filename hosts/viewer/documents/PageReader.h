#pragma once

#include "documents/PageSource.h"

#include <QObject>
#include <QThreadPool>

#include <memory>

namespace vostel::viewer {

// A page as it was read: on a canvas of its own, or the reason why not.
struct ReadPage {
    std::shared_ptr<Canvas> Page;
    QString                 Reason;
};

// Reads a page on the thread that calls.
ReadPage ReadPageNow(const PageSource& source);

// Reads pages in the back, one after the other.
class PageReader : public QObject {
    Q_OBJECT

public:
    PageReader();
    ~PageReader() override;

    bool IsReading() const { return Reading; }
    void Read(int index, const PageSource& source);
    void Drop();    // what is being read is not wanted any more

Q_SIGNALS:
    void read(int index, const vostel::viewer::ReadPage& page);

private:
    QThreadPool Thread;
    bool        Reading = false;
    int         Generation = 0;
};

}
