// A disk that is full, as a limit of the process on the size of files.

#include "support/FileLimit.h"
#include "support/OpenCanvas.h"
#include "support/OpenShapes.h"
#include "support/TempFolder.h"

TEST_CASE("a full disk never costs the file that was there, and leaves no fragment")
{
    const TempFolder  folder;
    const std::string session = folder.Path("s.vostel.json");
    const std::string regions = folder.Path("r.json");
    const OpenCanvas  canvas;
    Points            points;
    for (int i = 0; i < 2000; ++i)
        points.push_back({i / 3.0, i / 7.0});
    REQUIRE(vostel_session_save(canvas.Number, session.c_str(), 0) == VOSTEL_OK);
    REQUIRE(vostel_regions_export(canvas.Number, regions.c_str(), nullptr) == VOSTEL_OK);
    const std::vector<unsigned char> before = ReadBytes(session);
    const std::vector<unsigned char> regionsBefore = ReadBytes(regions);
    Add(canvas.Number, VOSTEL_POLYLINE, points);
    for (const rlim_t bytes : {0, 1, 100, 4096, 20000}) {
        VostelStatus saved = VOSTEL_OK, exported = VOSTEL_OK;
        {
            const FileLimit limit(bytes);
            saved = vostel_session_save(canvas.Number, session.c_str(), 0);
            exported = vostel_regions_export(canvas.Number, regions.c_str(), nullptr);
        }
        CHECK(saved == VOSTEL_NOT_WRITTEN);
        CHECK(exported == VOSTEL_NOT_WRITTEN);
        CHECK(ReadBytes(session) == before);
        CHECK(ReadBytes(regions) == regionsBefore);
        CHECK(folder.EntryCount() == 2);
    }
    REQUIRE(vostel_session_save(canvas.Number, session.c_str(), 0) == VOSTEL_OK);
    CHECK(ReadBytes(session).size() > 20000);
}
