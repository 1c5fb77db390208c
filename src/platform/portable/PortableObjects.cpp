// The table of live objects behind the handles, and the calls that make, select and delete them.
//
// A handle holds a slot number, the kind and the generation of the slot: a deleted object's handle, a
// handle of another kind and a number that never was a handle all find nothing.
//
// Different threads may use different objects at once. Slots never move and are published by their handle, so
// that finding an object takes no lock; making and deleting take one for the list of free slots.

#include "platform/portable/BitmapMemory.h"
#include "platform/portable/PortableContext.h"

#include <array>
#include <atomic>
#include <cstdlib>
#include <memory>
#include <mutex>
#include <new>
#include <utility>

namespace vostel::gdi {
namespace {

enum class Kind : unsigned { Free, Context, Bitmap, Pen, Brush, Font };

using HandleBits = std::uintptr_t;

// More objects than the desktop lets a process have are a leak, and fail here as they do there.
constexpr std::size_t SlotLimit = 65536;
constexpr std::size_t BlockSlots = 1024;
constexpr std::size_t NoSlot = SlotLimit;
constexpr int         IndexBits = 20;
constexpr int         KindBits = 4;
constexpr HandleBits  GenerationMask = ~HandleBits{0} >> (IndexBits + KindBits);

struct Slot {
    std::atomic<HandleBits> Handle{0};    // 0 while it is free
    Kind                    Holds = Kind::Free;
    bool                    Stock = false;
    int           Selections = 0;    // contexts that it is selected in; of stock objects not counted
    std::uint32_t Generation = 0;
    void*         Object = nullptr;
    std::size_t   Index = 0;
    std::size_t   NextFree = NoSlot;
};

struct Table {
    std::array<std::atomic<Slot*>, SlotLimit / BlockSlots> Blocks = {};    // owned

    std::mutex  Lock;    // of the free slots
    std::size_t FirstFree = NoSlot;
    std::size_t Used = 0;

    std::atomic<DWORD> Live{0};    // stock objects left out
    HGDIOBJ            Stock[22] = {};
    HBITMAP            DefaultBitmap = nullptr;
};

HandleBits HandleOf(const Slot& slot)
{
    return (slot.Generation & GenerationMask) << (IndexBits + KindBits) |
           static_cast<HandleBits>(slot.Holds) << IndexBits | (slot.Index + 1);
}

Slot* SlotAt(Table& table, std::size_t index)
{
    Slot* const block = table.Blocks[index / BlockSlots].load(std::memory_order_acquire);
    return block ? block + index % BlockSlots : nullptr;
}

Slot* FindSlot(Table& table, const void* handle)
{
    const HandleBits  bits = reinterpret_cast<HandleBits>(handle);
    const std::size_t index = bits & ((HandleBits{1} << IndexBits) - 1);
    if (index == 0 || index > SlotLimit)
        return nullptr;
    Slot* const slot = SlotAt(table, index - 1);
    return slot && slot->Handle.load(std::memory_order_acquire) == bits ? slot : nullptr;
}

// Null when memory or the table is full: no call of this interface throws.
Slot* TakeFreeSlot(Table& table)
{
    const std::lock_guard<std::mutex> hold(table.Lock);
    if (table.FirstFree != NoSlot) {
        Slot* const slot = SlotAt(table, table.FirstFree);
        table.FirstFree = slot->NextFree;
        return slot;
    }
    if (table.Used >= SlotLimit)
        return nullptr;
    std::atomic<Slot*>& block = table.Blocks[table.Used / BlockSlots];
    if (!block.load(std::memory_order_relaxed)) {
        Slot* const made = new (std::nothrow) Slot[BlockSlots];
        if (!made)
            return nullptr;
        block.store(made, std::memory_order_release);
    }
    Slot* const slot = SlotAt(table, table.Used);
    slot->Index = table.Used++;
    return slot;
}

HGDIOBJ Insert(Table& table, Kind kind, void* object, bool stock)
{
    Slot* const slot = TakeFreeSlot(table);
    if (!slot)
        return nullptr;
    slot->Holds = kind;
    slot->Stock = stock;
    slot->Selections = 0;
    slot->Object = object;
    if (!stock)
        table.Live.fetch_add(1, std::memory_order_relaxed);
    const HandleBits handle = HandleOf(*slot);
    slot->Handle.store(handle, std::memory_order_release);
    return reinterpret_cast<HGDIOBJ>(handle);
}

template <typename Object>
HGDIOBJ InsertObject(Table& table, Kind kind, std::unique_ptr<Object> object, bool stock)
{
    HGDIOBJ handle = object ? Insert(table, kind, object.get(), stock) : nullptr;
    if (handle)
        object.release();
    return handle;
}

void FillStock(Table& table)
{
    constexpr COLORREF StockBrushes[] = {0xFFFFFF, 0xC0C0C0, 0x808080, 0x404040, 0x000000};
    for (int i = WHITE_BRUSH; i <= BLACK_BRUSH; ++i)
        table.Stock[i] = InsertObject(
            table, Kind::Brush, std::make_unique<Brush>(Brush{Brush::Kind::Solid, 0, StockBrushes[i]}), true);
    table.Stock[NULL_BRUSH] =
        InsertObject(table, Kind::Brush, std::make_unique<Brush>(Brush{Brush::Kind::Null, 0, 0}), true);
    table.Stock[WHITE_PEN] =
        InsertObject(table, Kind::Pen, std::make_unique<Pen>(Pen{PS_SOLID, 0, 0xFFFFFF}), true);
    table.Stock[BLACK_PEN] = InsertObject(table, Kind::Pen, std::make_unique<Pen>(Pen{PS_SOLID, 0, 0}), true);
    table.Stock[NULL_PEN] = InsertObject(table, Kind::Pen, std::make_unique<Pen>(Pen{PS_NULL, 0, 0}), true);
    for (int index : {SYSTEM_FONT, DEFAULT_GUI_FONT}) {
        auto font = std::make_unique<Font>();
        font->Height = index == SYSTEM_FONT ? 16 : -11;
        font->Weight = index == SYSTEM_FONT ? 700 : 400;
        table.Stock[index] = InsertObject(table, Kind::Font, std::move(font), true);
    }
    auto bitmap = std::make_unique<Bitmap>();
    bitmap->Width = bitmap->Height = bitmap->BitsPerPixel = 1;
    bitmap->RowBytes = sizeof Context::BlankBits;
    bitmap->Bits = AllocateBits(sizeof Context::BlankBits);
    table.DefaultBitmap = static_cast<HBITMAP>(InsertObject(table, Kind::Bitmap, std::move(bitmap), true));
}

// Never destroyed: canvases delete their contexts while static objects are being torn down.
Table& Objects()
{
    static Table* const table = [] {
        Table* made = new Table;
        FillStock(*made);
        return made;
    }();
    return *table;
}

template <typename Object>
Object* Find(const void* handle, Kind kind)
{
    Slot* slot = FindSlot(Objects(), handle);
    return slot && slot->Holds == kind ? static_cast<Object*>(slot->Object) : nullptr;
}

void Destroy(const Slot& slot)
{
    switch (slot.Holds) {
    case Kind::Context:
        delete static_cast<Context*>(slot.Object);
        break;
    case Kind::Bitmap: {
        Bitmap* bitmap = static_cast<Bitmap*>(slot.Object);
        FreeBits(bitmap->Bits,
                 static_cast<std::size_t>(bitmap->Height) * static_cast<std::size_t>(bitmap->RowBytes));
        delete bitmap;
        break;
    }
    case Kind::Pen:
        delete static_cast<Pen*>(slot.Object);
        break;
    case Kind::Brush:
        delete static_cast<Brush*>(slot.Object);
        break;
    case Kind::Font:
        delete static_cast<Font*>(slot.Object);
        break;
    case Kind::Free:
        break;
    }
}

void Remove(Table& table, Slot& slot)
{
    slot.Handle.store(0, std::memory_order_release);
    Destroy(slot);
    slot.Holds = Kind::Free;
    slot.Object = nullptr;
    ++slot.Generation;
    table.Live.fetch_sub(1, std::memory_order_relaxed);
    const std::lock_guard<std::mutex> hold(table.Lock);
    slot.NextFree = table.FirstFree;
    table.FirstFree = slot.Index;
}

// Stock objects belong to all threads and stay as they are.
void Release(Table& table, const void* handle)
{
    Slot* const slot = FindSlot(table, handle);
    if (!slot || slot->Stock)
        return;
    --slot->Selections;
    if (slot->Holds == Kind::Bitmap)
        static_cast<Bitmap*>(slot->Object)->SelectedIn = nullptr;
}

// Puts an object in a member of a context and its handle beside it; returns the previous handle.
template <typename Handle, typename Object>
HGDIOBJ Exchange(Table& table, Slot& slot, HGDIOBJ handle, Handle& heldHandle, Object*& held)
{
    HGDIOBJ before = heldHandle;
    Release(table, before);
    if (!slot.Stock)
        ++slot.Selections;
    heldHandle = static_cast<Handle>(handle);
    held = static_cast<Object*>(slot.Object);
    return before;
}

}

Context::Context()
{
    Blank.Width = Blank.Height = Blank.BitsPerPixel = 1;
    Blank.RowBytes = sizeof BlankBits;
    Blank.Bits = BlankBits;
}

Context* FindContext(HDC dc)
{
    return Find<Context>(dc, Kind::Context);
}
Bitmap* FindBitmap(HBITMAP bitmap)
{
    return Find<Bitmap>(bitmap, Kind::Bitmap);
}
Pen* FindPen(HPEN pen)
{
    return Find<Pen>(pen, Kind::Pen);
}
Brush* FindBrush(HBRUSH brush)
{
    return Find<Brush>(brush, Kind::Brush);
}
Font* FindFont(HFONT font)
{
    return Find<Font>(font, Kind::Font);
}

HBITMAP InsertBitmap(std::unique_ptr<Bitmap> bitmap)
{
    return static_cast<HBITMAP>(InsertObject(Objects(), Kind::Bitmap, std::move(bitmap), false));
}

}

using namespace vostel::gdi;

HDC CreateCompatibleDC(HDC like)
{
    Table& table = Objects();
    if (like && !FindContext(like))
        return nullptr;
    std::unique_ptr<Context> made(new (std::nothrow) Context);
    HDC dc = static_cast<HDC>(InsertObject(table, Kind::Context, std::move(made), false));
    if (!dc)
        return nullptr;
    SelectObject(dc, table.DefaultBitmap);
    SelectObject(dc, table.Stock[BLACK_PEN]);
    SelectObject(dc, table.Stock[WHITE_BRUSH]);
    SelectObject(dc, table.Stock[SYSTEM_FONT]);
    return dc;
}

BOOL DeleteDC(HDC dc)
{
    Context* context = FindContext(dc);
    if (!context)
        return FALSE;
    Table& table = Objects();
    Release(table, context->BitmapHandle);
    Release(table, context->PenHandle);
    Release(table, context->BrushHandle);
    Release(table, context->FontHandle);
    Remove(table, *FindSlot(table, dc));
    return TRUE;
}

HGDIOBJ SelectObject(HDC dc, HGDIOBJ object)
{
    Table&   table = Objects();
    Context* context = FindContext(dc);
    Slot*    slot = FindSlot(table, object);
    if (!context || !slot)
        return nullptr;
    switch (slot->Holds) {
    case Kind::Bitmap: {
        // The default bitmap is in every context that holds no other; any other is in one at most.
        Bitmap* bitmap = static_cast<Bitmap*>(slot->Object);
        if (!slot->Stock && slot->Selections != 0 && bitmap->SelectedIn != dc)
            return nullptr;
        HGDIOBJ before = Exchange(table, *slot, object, context->BitmapHandle, context->Surface);
        if (slot->Stock)
            context->Surface = &context->Blank;
        else
            bitmap->SelectedIn = dc;
        return before;
    }
    case Kind::Pen:
        return Exchange(table, *slot, object, context->PenHandle, context->SelectedPen);
    case Kind::Brush:
        return Exchange(table, *slot, object, context->BrushHandle, context->SelectedBrush);
    case Kind::Font:
        return Exchange(table, *slot, object, context->FontHandle, context->SelectedFont);
    default:
        return nullptr;
    }
}

BOOL DeleteObject(HGDIOBJ object)
{
    Table& table = Objects();
    Slot*  slot = FindSlot(table, object);
    if (!slot)
        return FALSE;
    if (slot->Holds == Kind::Context)
        return DeleteDC(static_cast<HDC>(object));
    if (slot->Stock)
        return TRUE;
    if (slot->Selections != 0)
        return FALSE;
    Remove(table, *slot);
    return TRUE;
}

HGDIOBJ GetStockObject(int index)
{
    Table& table = Objects();
    return index < 0 || index >= static_cast<int>(std::size(table.Stock)) ? nullptr : table.Stock[index];
}

HGDIOBJ GetCurrentObject(HDC dc, UINT kind)
{
    const Context* context = FindContext(dc);
    if (!context)
        return nullptr;
    switch (kind) {
    case OBJ_PEN:
        return context->PenHandle;
    case OBJ_BRUSH:
        return context->BrushHandle;
    case OBJ_FONT:
        return context->FontHandle;
    case OBJ_BITMAP:
        return context->BitmapHandle;
    default:
        return nullptr;
    }
}

HPEN CreatePen(int style, int width, COLORREF color)
{
    Table& table = Objects();
    if (style == PS_NULL)
        return static_cast<HPEN>(table.Stock[NULL_PEN]);
    std::unique_ptr<Pen> pen(new (std::nothrow) Pen);
    if (pen) {
        // An unknown style draws solid. The width counts without its sign.
        pen->Style = style > PS_NULL || style < PS_SOLID ? PS_SOLID : style;
        pen->Width = width == INT32_MIN ? INT32_MAX : std::abs(width);
        pen->Color = color;
    }
    return static_cast<HPEN>(InsertObject(table, Kind::Pen, std::move(pen), false));
}

HBRUSH CreateSolidBrush(COLORREF color)
{
    std::unique_ptr<Brush> brush(new (std::nothrow) Brush{Brush::Kind::Solid, 0, color});
    return static_cast<HBRUSH>(InsertObject(Objects(), Kind::Brush, std::move(brush), false));
}

HBRUSH CreateHatchBrush(int style, COLORREF color)
{
    if (style < HS_HORIZONTAL || style > HS_DIAGCROSS)
        return nullptr;
    std::unique_ptr<Brush> brush(new (std::nothrow) Brush{Brush::Kind::Hatch, style, color});
    return static_cast<HBRUSH>(InsertObject(Objects(), Kind::Brush, std::move(brush), false));
}

HFONT CreateFontW(int height, int, int, int, int weight, DWORD italic, DWORD underline, DWORD strikeOut,
                  DWORD, DWORD, DWORD, DWORD, DWORD, LPCWSTR face)
{
    try {
        auto font = std::make_unique<Font>();
        font->Height = height;
        font->Weight = weight == 0 ? 400 : weight;
        font->Italic = italic != 0;
        font->Underline = underline != 0;
        font->StrikeOut = strikeOut != 0;
        // A face name has at most 31 characters.
        for (int i = 0; face && i < 31 && face[i] != 0; ++i)
            font->Face.push_back(face[i]);
        return static_cast<HFONT>(InsertObject(Objects(), Kind::Font, std::move(font), false));
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

DWORD GetGuiResources(HANDLE process, DWORD kind)
{
    return process == GetCurrentProcess() && kind == GR_GDIOBJECTS
               ? Objects().Live.load(std::memory_order_relaxed)
               : 0;
}
