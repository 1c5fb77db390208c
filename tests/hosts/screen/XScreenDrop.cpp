// The other program of a drag and drop: the side of the source, version 5 of the protocol.

#include "hosts/screen/XScreen.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>

namespace {

class DropSource {
public:
    DropSource(Display* server, Window target, const std::string& path)
        : Server(server), Target(target), Data("file://" + path + "\r\n"),
          Source(XCreateSimpleWindow(server, DefaultRootWindow(server), -10, -10, 1, 1, 0, 0, 0)),
          Selection(Name("XdndSelection")), UriList(Name("text/uri-list"))
    {
        XSetSelectionOwner(Server, Selection, Source, CurrentTime);
    }
    ~DropSource() { XDestroyWindow(Server, Source); }
    DropSource(const DropSource&) = delete;
    DropSource& operator=(const DropSource&) = delete;

    bool Run(Place at)
    {
        constexpr long Version = 5;
        Send("XdndEnter", Version << 24, static_cast<long>(UriList), 0, 0);
        Send("XdndPosition", 0, static_cast<long>(at.X) << 16 | at.Y, CurrentTime,
             static_cast<long>(Name("XdndActionCopy")));
        const XClientMessageEvent status = Await("XdndStatus");
        if (!(status.data.l[1] & 1))
            return false;    // not wanted
        Send("XdndDrop", 0, CurrentTime, 0, 0);
        return Await("XdndFinished").type == ClientMessage;
    }

private:
    Atom Name(const char* name) const { return XInternAtom(Server, name, False); }

    void Send(const char* what, long first, long second, long third, long fourth)
    {
        XEvent event = {};
        event.xclient.type = ClientMessage;
        event.xclient.window = Target;
        event.xclient.message_type = Name(what);
        event.xclient.format = 32;
        event.xclient.data.l[0] = static_cast<long>(Source);
        event.xclient.data.l[1] = first;
        event.xclient.data.l[2] = second;
        event.xclient.data.l[3] = third;
        event.xclient.data.l[4] = fourth;
        XSendEvent(Server, Target, False, NoEventMask, &event);
        XFlush(Server);
    }
    // Hands the data out while it waits; all zero if the reply does not come.
    XClientMessageEvent Await(const char* what)
    {
        XClientMessageEvent reply = {};
        XScreen::Wait([&] {
            while (XPending(Server)) {
                XEvent event;
                XNextEvent(Server, &event);
                if (event.type == SelectionRequest)
                    HandOut(event.xselectionrequest);
                else if (event.type == ClientMessage && event.xclient.message_type == Name(what))
                    reply = event.xclient;
            }
            return reply.type == ClientMessage;
        });
        return reply;
    }
    void HandOut(const XSelectionRequestEvent& request)
    {
        XChangeProperty(Server, request.requestor, request.property, request.target, 8, PropModeReplace,
                        reinterpret_cast<const unsigned char*>(Data.data()), static_cast<int>(Data.size()));
        XEvent event = {};
        event.xselection.type = SelectionNotify;
        event.xselection.requestor = request.requestor;
        event.xselection.selection = request.selection;
        event.xselection.target = request.target;
        event.xselection.property = request.property;
        event.xselection.time = request.time;
        XSendEvent(Server, request.requestor, False, NoEventMask, &event);
        XFlush(Server);
    }

    Display*    Server;
    Window      Target;
    std::string Data;
    Window      Source;
    Atom        Selection, UriList;
};

}

bool XScreen::Drop(const std::string& path, Place at)
{
    const unsigned long target = TopWindow();
    return target != 0 && DropSource(Server, target, path).Run(at);
}
