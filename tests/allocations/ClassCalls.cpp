#include "allocations/ClassicCalls.h"

namespace {

using W = ClassicWorld;

// The members of containers that any element type has.
template <typename T>
void AddContainer(std::map<std::string, ClassicCall>& calls, const std::string& type)
{
    using Base = ClassData2DIOGeneral<T>;
    const std::string base = "ClassData2DIOGeneral<" + type + ">::";
    const std::string same = "ClassData2DIOGeneral<" + type + "> const&)";
    calls[base + "Allocate(int, int)"] = [](W&) {
        Base plane;
        plane.Allocate(5, 4);
        plane.Allocate(3, 2);
    };
    calls[base + "ClassData2DIOGeneral(" + same] = [](W&) {
        Base plane;
        plane.Allocate(5, 4);
        const Base copy(plane);
    };
    calls[base + "operator=(" + same] = [](W&) {
        Base plane, copy;
        plane.Allocate(5, 4);
        copy.Allocate(2, 2);
        copy = plane;
    };
    calls["StructData2D<" + type + ">::AllocateBuffers(int, int)"] = [](W&) {
        Base plane;    // frees what is made
        plane.AllocateBuffers(5, 4);
    };
}

template <typename T>
void AddAssignment(std::map<std::string, ClassicCall>& calls, const std::string& type)
{
    calls["ClassData2DIO<" + type + ">::operator=(ClassData2DIO<" + type + "> const&)"] = [](W&) {
        ClassData2DIO<T> plane, copy;
        plane.Allocate(5, 4);
        copy = plane;
    };
}

template <typename To, typename From>
void Convert(W&)
{
    ClassData2DIO<From> source;
    source.Allocate(6, 5);
    std::fill_n(source.Ptr1D, 30, static_cast<From>(7));
    ClassData2DIO<To> target;
    target.ConvertFrom(source, 2.0f);
}

void AddConversion(std::map<std::string, ClassicCall>& calls, const std::string& to, const std::string& from,
                   ClassicCall call)
{
    calls["void StructData2D<" + to + ">::ConvertFrom<" + from + ">(StructData2D<" + from + ">&, float)"] =
        call;
}

std::map<std::string, ClassicCall> ContainerCalls()
{
    std::map<std::string, ClassicCall> calls;
    AddContainer<float>(calls, "float");
    AddContainer<int>(calls, "int");
    AddContainer<short>(calls, "short");
    AddContainer<tagStructRGBA>(calls, "tagStructRGBA");
    AddContainer<unsigned char>(calls, "unsigned char");
    AddContainer<unsigned short>(calls, "unsigned short");
    AddAssignment<float>(calls, "float");
    AddAssignment<int>(calls, "int");
    AddAssignment<short>(calls, "short");
    AddAssignment<unsigned char>(calls, "unsigned char");
    AddAssignment<unsigned short>(calls, "unsigned short");
    AddConversion(calls, "float", "short", Convert<float, short>);
    AddConversion(calls, "float", "unsigned char", Convert<float, unsigned char>);
    AddConversion(calls, "float", "unsigned short", Convert<float, unsigned short>);
    AddConversion(calls, "unsigned short", "float", Convert<unsigned short, float>);
    AddConversion(calls, "unsigned short", "short", Convert<unsigned short, short>);
    AddConversion(calls, "unsigned short", "unsigned char", Convert<unsigned short, unsigned char>);
    calls["ClassData2DIO<float>::ReadFile(char const*, unsigned int)"] = [](W& w) {
        w.Floats.ReadFile(w.Path("a.raw").c_str(), 2);
    };
    calls["ClassData2DIO<short>::ReadFile(char const*, unsigned int)"] = [](W& w) {
        w.Shorts.ReadFile(w.Path("none").c_str(), 0);
    };
    calls["ClassData2DIO<unsigned char>::ReadFile(char const*)"] = [](W& w) {
        w.Bytes.ReadFile(w.Path("a.raw").c_str());
    };
    return calls;
}

const std::map<std::string, ClassicCall> OtherCalls = {
    {"ATL::CImage::Create(int, int, int)", [](W& w) { w.Picture.Create(30, 20, 32); }},
    {"ATL::CImage::GetDC() const",
     [](W& w) {
         w.Picture.GetDC();
         w.Picture.ReleaseDC();
     }},
    {"ATL::CImage::Load(wchar_t const*)",
     [](W& w) {
         for (const char* name : {"a.png", "a.bmp", "a.jpg", "a.gif", "a.tif"})
             w.Picture.Load(w.WidePath(name));
     }},
    {"ATL::CImage::Save(wchar_t const*) const",
     [](W& w) {
         for (const char* name : {"b.png", "b.bmp", "b.jpg", "b.gif", "b.tif"})
             w.Picture.Save(w.WidePath(name));
     }},
    {"CString::Format(wchar_t const*, ...)",
     [](W&) { CString().Format(L"a text that is longer than a short one %d", 7); }},
    {"CString::AppendFormat(wchar_t const*, ...)",
     [](W&) { CString().AppendFormat(L"a text that is longer than a short one %d", 7); }},
    {"CString::Widened[abi:cxx11](char const*)",
     [](W&) { CString("a text that is longer than a short one"); }},
    {"ClassRGBArray::GenerateRGBArray(int)",
     [](W&) {
         ClassRGBArray array;
         array.GenerateRGBArray(20);
     }},
    {"OSCString::ChangeExt(CString, CString)",
     [](W& w) { OSCString().ChangeExt(w.WidePath("a.raw"), L"txt"); }},
    {"OSCString::GetDir(CString&)",
     [](W& w) {
         CString path = w.WidePath("a.raw");
         OSCString().GetDir(path);
     }},
    {"OSCString::GetExt(CString&)",
     [](W& w) {
         CString path = w.WidePath("a.raw");
         OSCString().GetExt(path);
     }},
    {"OSCString::GetName(CString&, bool)",
     [](W& w) {
         CString path = w.WidePath("a.raw");
         OSCString().GetName(path, true);
     }},
    {"OSCString::GetNextDir(CString&)",
     [](W& w) {
         CString path = w.WidePath("a.raw");
         OSCString().GetNextDir(path);
     }},
    {"OSCString::OSCString(CString&)",
     [](W& w) {
         CString         path = w.WidePath("a.raw");
         const OSCString narrow(path);
     }},
    {"OSCString::SetCString(CString&)",
     [](W& w) {
         CString   path = w.WidePath("a.raw");
         OSCString narrow(path);
         narrow.SetCString(path);
     }},
    {"OSDIR::CheckFolderExist(CString const&)", [](W& w) { OSDIR().CheckFolderExist(w.WidePath("")); }},
    {"OSDIR::DirectoryOperate(CString, CString, unsigned int)",
     [](W& w) { OSDIR().DirectoryOperate(w.WidePath("from") + L"\\*.*", w.WidePath("to") + L"\\*.*", 0); }},
    {"OSDIR::FindFile(wchar_t*, std::vector<CString, std::allocator<CString> >&, bool, wchar_t*)",
     [](W& w) {
         std::wstring         folder(w.WidePath("")), pattern(L"*.raw");
         std::vector<CString> found;
         OSDIR().FindFile(folder.data(), found, true, pattern.data());
     }},
    {"OSDIR::GetBmpFile()", [](W&) { OSDIR().GetBmpFile(); }},
    {"OSDIR::GetBmpFileNoOverWritePrompt()", [](W&) { OSDIR().GetBmpFileNoOverWritePrompt(); }},
    {"OSDIR::GetDir()", [](W&) { OSDIR().GetDir(); }},
    {"OSDIR::GetFile()", [](W&) { OSDIR().GetFile(); }},
    {"OSDIR::GetMultiFile(std::vector<CString, std::allocator<CString> >&, int)",
     [](W&) {
         std::vector<CString> names;
         OSDIR().GetMultiFile(names, 100);
     }},
    {"OSDIR::GetRawFile()", [](W&) { OSDIR().GetRawFile(); }},
    {"OSDIR::GetRawFileNoOverWritePrompt()", [](W&) { OSDIR().GetRawFileNoOverWritePrompt(); }},
    {"OSDIR::IsDir(CString&)",
     [](W& w) {
         CString path = w.WidePath("");
         OSDIR().IsDir(path);
     }},
    {"OSDIR::Read(char*, std::vector<CString, std::allocator<CString> >&)",
     [](W& w) {
         std::string          path = w.Path("a.ini");
         std::vector<CString> lines;
         OSDIR().Read(path.data(), lines);
     }},
    {"OSDIR::Write(char*, std::vector<CString, std::allocator<CString> >)",
     [](W& w) {
         std::string path = w.Path("b.txt");
         OSDIR().Write(path.data(), w.Lines);
     }},
    {"ZEKIODisk::OpenRead(char*)",
     [](W& w) {
         std::string path = w.Path("a.ini");
         ZEKIODisk   disk;
         disk.OpenRead(path.data());
         disk.CloseRead();
     }},
    {"ZEKIODisk::OpenWrite(char*)",
     [](W& w) {
         std::string path = w.Path("b.ini");
         ZEKIODisk   disk;
         disk.OpenWrite(path.data());
         disk.CloseWrite();
     }},
    {"ZEKIODisk::OpenWriteEmpty(char*)",
     [](W& w) {
         std::string path = w.Path("b.ini");
         ZEKIODisk   disk;
         disk.OpenWriteEmpty(path.data());
     }},
    {"ZEKIODisk::ReadMap()",
     [](W& w) {
         std::string path = w.Path("a.ini");
         ZEKIODisk   disk;
         disk.OpenRead(path.data());
         disk.ReadMap();
     }},
    {"ZEKIODisk::WriteChar(char*)",
     [](W& w) {
         std::string path = w.Path("b.ini"), text = "text";
         ZEKIODisk   disk;
         disk.OpenWrite(path.data());
         disk.WriteChar(text.data());
     }},
    {"ZEKIODisk::WritePara(char*, void*, int)",
     [](W& w) {
         std::string path = w.Path("b.ini"), name = "name";
         float       value = 2.5f;
         ZEKIODisk   disk;
         disk.OpenWrite(path.data());
         disk.WritePara(name.data(), &value, 1);
         disk.NextLine();
     }},
    {"ZEKIODisk::WriteString(std::__cxx11::basic_string<char, std::char_traits<char>, std::allocator<char> "
     ">)",
     [](W& w) {
         std::string path = w.Path("b.ini");
         ZEKIODisk   disk;
         disk.OpenWrite(path.data());
         disk.WriteString("a text that is longer than a short one");
     }},
    {"ZEKMAPIMA::GetMapUc(float, float)", [](W&) { ZEKMAPIMA().GetMapUc(0.2f, 0.7f); }},
    {"ZEKMAPIMA::GetMapUs()", [](W&) { ZEKMAPIMA().GetMapUs(); }},
    {"ZEKMAPIMA::SetRange(int, int)", [](W&) { ZEKMAPIMA().SetRange(10, 200); }},
    {"ZEKMAPIMA::SetUsColorRange(int, int, tagStructRGBA, tagStructRGBA)",
     [](W&) { ZEKMAPIMA().SetUsColorRange(10, 200, tagStructRGBA(), tagStructRGBA()); }},
    {"ZEKMAPIMA::ZEKMAPIMA()", [](W&) { const ZEKMAPIMA map; }},
    {"ZEKPP1DFFT::Init(int, bool)", [](W& w) { w.Transform.Init(32, false); }},
    {"ZEKPP1DFFT::MultiplyV(std::vector<std::complex<float>, std::allocator<std::complex<float> > >&)",
     [](W& w) {
         std::vector<std::complex<float>> factors(16, 2.0f);
         w.Transform.MultiplyV(factors);
     }},
    {"ZEKPP1DFFT::RunFFT()", [](W& w) { w.Transform.RunFFT(); }},
    {"ZEKPP1DFFT::RunFFT(bool)", [](W& w) { w.Transform.RunFFT(false); }},
    {"ZEKPP1DFFT::RunFFTOri()", [](W& w) { w.Transform.RunFFTOri(); }},
    {"PrecisionTime::ShowTime()",
     [](W&) {
         PrecisionTime time;
         time.Start();
         time.End();
         time.ShowTime();
     }},
};

}

const std::map<std::string, ClassicCall>& ClassCalls()
{
    static const std::map<std::string, ClassicCall> calls = [] {
        std::map<std::string, ClassicCall> all = ContainerCalls();
        all.insert(OtherCalls.begin(), OtherCalls.end());
        return all;
    }();
    return calls;
}
