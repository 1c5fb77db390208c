// Files that vanish or change before any of the calls to the system by which they are read: what comes out is
// what the file was before or what it is afterwards, or that it cannot be read, and then nothing has changed.

#include "reads/ReadCalls.h"
#include "support/WatchedProcess.h"

#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>

namespace {

// Names of exports that sound like reads of files and are none, or no more than one look.
const std::regex OtherNames("OSDIR::(Get.*|IsDir|CheckFolderExist|Write)\\(.*|c(Dir|File)Exist\\(.*"
                            "|cFileSize\\(_IO_FILE\\*\\)|OSCString::Get.*Dir.*"
                            "|ZEKIODisk::(CloseRead|Open.*|Read(Int|Flt))\\(.*"    // ReadMap reads
                            "|ZEKPP1DFFT::.*Load.*|ZEKPP1DFFT::ChangeDir.*|gCVSAddLineProfile.*"
                            "|gCVS.et(FileType|UseClientMemDCPixelDirect).*|vostel_profile");

struct Change {
    const char* Name;
    bool        LeavesOldBytes;    // who has the file open reads on as before
    void (*Make)(const std::string& path, const std::string& second);
};

void Remove(const std::string& path, const std::string&)
{
    std::filesystem::remove(path);
}

void Cut(const std::string& path, const std::string&)
{
    std::filesystem::resize_file(path, std::filesystem::file_size(path) / 2);
}

void Empty(const std::string& path, const std::string&)
{
    std::filesystem::resize_file(path, 0);
}

void Append(const std::string& path, const std::string& second)
{
    std::ofstream(path, std::ios::binary | std::ios::app) << std::ifstream(second, std::ios::binary).rdbuf();
}

void Overwrite(const std::string& path, const std::string& second)
{
    std::ofstream(path, std::ios::binary) << std::ifstream(second, std::ios::binary).rdbuf();
}

void Replace(const std::string& path, const std::string& second)
{
    std::filesystem::rename(second, path);
}

void PutFolder(const std::string& path, const std::string&)
{
    std::filesystem::remove(path);
    std::filesystem::create_directory(path);
}

void PutPipe(const std::string& path, const std::string&)
{
    std::filesystem::remove(path);
    REQUIRE(mkfifo(path.c_str(), 0600) == 0);
}

const Change Changes[] = {
    {"removed", true, Remove},         {"cut to half", true, Cut},
    {"emptied", true, Empty},          {"made longer", true, Append},
    {"overwritten", false, Overwrite}, {"replaced by another", true, Replace},
    {"a folder now", true, PutFolder}, {"a pipe now", true, PutPipe},
};

bool ReadsFiles(const SystemCall& call)
{
    constexpr std::uint64_t Reading[] = {
        SYS_openat,     SYS_newfstatat, SYS_fstat, SYS_statx,      SYS_faccessat,       SYS_read,
        SYS_readv,      SYS_pread64,    SYS_lseek, SYS_getdents64, SYS_copy_file_range, SYS_sendfile,
        SYS_readlinkat,
#ifdef SYS_open
        SYS_open,       SYS_stat,       SYS_lstat, SYS_access,     SYS_readlink,
#endif
    };
    return std::find(std::begin(Reading), std::end(Reading), call.Number) != std::end(Reading);
}

// Text that a process leaves to the one that watches it.
class SharedText {
public:
    SharedText()
        : Text(static_cast<char*>(
              mmap(nullptr, Bytes, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0)))
    {
        REQUIRE(Text != MAP_FAILED);
    }
    ~SharedText() { munmap(Text, Bytes); }
    SharedText(const SharedText&) = delete;
    SharedText& operator=(const SharedText&) = delete;

    void        Clear() { Text[0] = '\0'; }
    void        Take(const std::string& text) { Text[text.copy(Text, Bytes - 1)] = '\0'; }
    std::string Get() const { return Text; }

private:
    static constexpr std::size_t Bytes = 1 << 20;
    char*                        Text;
};

// Reads of one call from a folder of its own.
class Reading {
public:
    Reading(ReadScene& scene, const ReadCall& call, const TempFolder& first, const TempFolder& second)
        : Scene(scene), Call(call), First(first), Second(second)
    {
        std::filesystem::copy(first.Path(), Folder.Path(), std::filesystem::copy_options::recursive);
    }

    // What the call makes of its file if that changes before the n-th call to the system; n is 1 for a file
    // that has changed before.
    std::string Read(const Change* change, int n)
    {
        const std::string name = Call.Other.empty() ? Call.File : Call.Other;
        const std::string changed = Folder.Path(name);
        std::filesystem::remove_all(changed);
        std::filesystem::copy_file(First.Path(name), changed);
        const std::string second = Spare.Path("second");
        std::filesystem::copy_file(Second.Path(name), second,
                                   std::filesystem::copy_options::overwrite_existing);
        int calls = 0;
        Text.Clear();
        const ProcessEnd end = RunWatched(
            [&] {
                alarm(5);
                try {
                    Text.Take(Call.Run(Scene, Folder.Path(Call.File)));
                } catch (const std::exception& exception) {
                    Text.Take(std::string("thrown: ") + exception.what());
                }
            },
            [&](const SystemCall& call) {
                if (ReadsFiles(call) && ++calls == n)
                    change->Make(changed, second);
                return true;
            });
        HasChanged = change && calls >= n;
        return end == ProcessEnd::Done ? Text.Get() : end == ProcessEnd::Unknown ? "unknown" : "killed";
    }

    bool HasChanged = false;

private:
    ReadScene&        Scene;
    const ReadCall&   Call;
    const TempFolder& First;
    const TempFolder& Second;
    TempFolder        Folder, Spare;
    SharedText        Text;
};

}

TEST_CASE("the table has every exported call whose name says that it reads files")
{
    std::ifstream         list(VOSTEL_EXPORTED_NAMES);
    const std::regex      reads("read|load|open|import|file|page|dir", std::regex::icase);
    std::set<std::string> tested;
    for (const ReadCall& call : ReadCalls())
        tested.insert(call.Export);
    std::string name;
    std::size_t seen = 0;
    while (std::getline(list, name)) {
        CAPTURE(name);
        const bool expected = tested.count(name) == 1;
        CHECK(expected != (!std::regex_search(name, reads) || std::regex_match(name, OtherNames)));
        seen += expected;
    }
    CHECK(seen == tested.size());
}

TEST_CASE("a file that changes while it is read counts as before or as afterwards, or is refused")
{
    const TempFolder first, second;
    WriteFiles(first, 1);
    WriteFiles(second, 2);
    ReadScene scene;
    int       changed = 0;
    for (const ReadCall& call : ReadCalls()) {
        CAPTURE(call.Export);
        CAPTURE(call.File);
        CAPTURE(call.Other);
        Reading           reading(scene, call, first, second);
        const std::string before = reading.Read(nullptr, 0);
        if (before == "unknown") {
            MESSAGE("processes cannot be watched here");
            return;
        }
        CHECK(before.rfind("refused", 0) != 0);
        CHECK(before.rfind("thrown", 0) != 0);
        const std::string missing = reading.Read(&Changes[0], 1);
        int               offset = 0;
        for (const Change& change : Changes) {
            CAPTURE(std::string(change.Name));
            const std::string after = reading.Read(&change, 1);
            for (int n = 2 + ++offset % VOSTEL_READ_STEP; reading.HasChanged; n += VOSTEL_READ_STEP) {
                CAPTURE(n);
                REQUIRE(n < 3000);
                const std::string now = reading.Read(&change, n);
                changed += reading.HasChanged;
                const bool mixed = !change.LeavesOldBytes || call.InParts;
                const bool clean =
                    now != "killed" && now.rfind("thrown", 0) != 0 && now.rfind("refused in", 0) != 0;
                CHECK(
                    (now == before || now == after || now == missing || now == Refused || (mixed && clean)));
            }
        }
    }
    CHECK(changed * VOSTEL_READ_STEP > 1500);
}
