#pragma once

// Good and bad arguments for functions of the open interface, and a world in which they are called.

#include "support/TempFolder.h"

#include "vostel.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

// An argument in the type that its function takes it as.
struct Value {
    std::int64_t Whole = 0;
    double       Real = 0.0;
    void*        Pointer = nullptr;
};

struct BadValue {
    std::string            What;
    bool                   MustFail = false;    // else the status may be either
    std::function<Value()> Use;                 // may spoil the world's memory first
};

inline void HearNothing(const VostelEvent*, void*) {}

// A canvas with an image, objects and history, another one, files, and memory for each argument with guards
// around it. Kinds of arguments are the words of the table of functions.
class BadInputWorld {
public:
    // Memory that is not aligned lies one byte beside.
    explicit BadInputWorld(bool aligned);
    ~BadInputWorld();
    BadInputWorld(const BadInputWorld&) = delete;
    BadInputWorld& operator=(const BadInputWorld&) = delete;

    std::int32_t Canvas() const { return First; }
    // For the argument at a place of a function.
    Value                 Good(const std::string& argument, std::size_t place);
    std::vector<BadValue> Bad(const std::string& argument, std::size_t place);

    // All that a failure must not change: the canvas, and the memory of all arguments.
    std::string Snapshot() const;
    bool        GuardsStand() const;

private:
    static constexpr std::size_t Places = 8;    // arguments at most
    static constexpr std::size_t PlaceBytes = 20000;
    static constexpr std::size_t GuardBytes = 64;

    std::vector<unsigned char> Memory;
    std::size_t                Shift;
    TempFolder                 Folder;
    std::vector<std::string>   Texts;    // lent to calls
    std::int32_t               First = -1;
    std::int32_t               Second = -1;
    std::int32_t               Dead = -1;
    VostelObject               Region = 0;
    VostelObject               Line = 0;
    VostelObject               Text = 0;
    VostelObject               Foreign = 0;
    VostelObject               Gone = 0;
    std::int64_t               Token = 0;

    unsigned char* PlaceOf(std::size_t place);
    void           Fill(const void* bytes, std::size_t count, std::size_t place);
    // The record that the word stands for, empty if it is none.
    std::vector<unsigned char> RecordOf(const std::string& kind, std::size_t place);
    const std::string*         TextOfKind(const std::string& kind);
};
