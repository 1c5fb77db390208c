#include "commands/Commands.h"
#include "commands/Routines.h"
#include "commands/Utf8Text.h"

#include <doctest/doctest.h>

#include <cctype>
#include <map>
#include <set>
#include <string>

using namespace vostel::viewer;

namespace {

// The letter after the only single &, in lower case; 0 without one.
char Mnemonic(Language language, const char* english)
{
    const std::string text = Utf8Of(TextIn(language, english));
    const std::size_t at = text.find('&');
    if (at == std::string::npos || at + 1 >= text.size() || text.find('&', at + 1) != std::string::npos)
        return 0;
    return static_cast<char>(std::tolower(static_cast<unsigned char>(text[at + 1])));
}

}

TEST_CASE("every command has a number of its own, a text, a hint and is found by its number")
{
    std::set<int> numbers;
    for (const CommandEntry& entry : AllCommands()) {
        CAPTURE(std::string(entry.Text));
        CHECK(numbers.insert(static_cast<int>(entry.Id)).second);
        CHECK(std::string(entry.Text).size() > 1);
        const std::string hint = entry.Hint;
        REQUIRE(hint.size() > 1);
        CHECK(hint.back() == '.');
        CHECK(FindCommand(entry.Id) == &entry);
    }
    CHECK(numbers.size() == AllCommands().size());
    CHECK(FindCommand(static_cast<Command>(0)) == nullptr);
}

TEST_CASE("the numbers of the commands run from 1 without a gap, so that no command is left out of the table")
{
    std::set<int> numbers;
    for (const CommandEntry& entry : AllCommands())
        numbers.insert(static_cast<int>(entry.Id));
    CHECK(*numbers.begin() == 1);
    CHECK(*numbers.rbegin() == static_cast<int>(Command::About));
    CHECK(numbers.size() == static_cast<std::size_t>(Command::About));
}

TEST_CASE("no shortcut stands twice")
{
    std::set<std::string> shortcuts;
    for (const CommandEntry& entry : AllCommands()) {
        CAPTURE(std::string(entry.Shortcut));
        if (*entry.Shortcut != '\0')
            CHECK(shortcuts.insert(entry.Shortcut).second);
    }
    CHECK(shortcuts.size() > 30);
}

TEST_CASE("inside a menu and a language no mnemonic stands twice, nor among the titles of the menus")
{
    for (const Language language : {Language::English, Language::Chinese}) {
        std::map<Menu, std::set<char>> mnemonics;
        for (const CommandEntry& entry : AllCommands()) {
            CAPTURE(std::string(entry.Text));
            const char letter = Mnemonic(language, entry.Text);
            CHECK(letter != 0);
            CHECK(mnemonics[entry.In].insert(letter).second);
        }
        std::set<char> titles;
        for (Menu menu : AllMenus()) {
            CHECK(Mnemonic(language, MenuTitle(menu)) != 0);
            CHECK(titles.insert(Mnemonic(language, MenuTitle(menu))).second);
            CHECK(mnemonics.count(menu) == 1);
        }
        CHECK(mnemonics.size() == AllMenus().size());
    }
}

TEST_CASE("the commands stand in the order of the menus, and no menu begins with a line")
{
    std::set<Menu> done;
    const Menu*    last = nullptr;
    for (const CommandEntry& entry : AllCommands()) {
        if (last && *last == entry.In)
            continue;
        CAPTURE(std::string(entry.Text));
        CHECK(done.insert(entry.In).second);
        CHECK_FALSE(entry.SeparatorBefore);
        last = &entry.In;
    }
}

TEST_CASE("a shortcut with a plain letter always has Control, since canvases take plain letters")
{
    int letters = 0;
    for (const CommandEntry& entry : AllCommands()) {
        const std::string shortcut = entry.Shortcut;
        const std::size_t plus = shortcut.rfind('+');
        const std::string key = plus == std::string::npos ? shortcut : shortcut.substr(plus + 1);
        if (key.size() != 1)
            continue;
        ++letters;
        CAPTURE(shortcut);
        CHECK(shortcut.rfind("Ctrl+", 0) == 0);
    }
    CHECK(letters > 20);
}

TEST_CASE("choices belong to a group, other commands to none, and each group has two choices at least")
{
    std::map<ChoiceGroup, int> members;
    for (const CommandEntry& entry : AllCommands()) {
        CHECK((entry.Kind == CommandKind::Choice) == (entry.Group != ChoiceGroup::None));
        ++members[entry.Group];
    }
    for (ChoiceGroup group : {ChoiceGroup::Mouse, ChoiceGroup::Arrangement, ChoiceGroup::Canvas})
        CHECK(members[group] >= 2);
    CHECK(members[ChoiceGroup::Canvas] == 5);
}

TEST_CASE("the routines are the routine commands of the table, each with a text that promises its dialog")
{
    std::size_t routines = 0;
    for (const CommandEntry& entry : AllCommands()) {
        CAPTURE(std::string(entry.Text));
        const Routine* const routine = FindRoutine(entry.Id);
        CHECK((routine != nullptr) == (entry.Kind == CommandKind::Routine));
        if (!routine)
            continue;
        ++routines;
        const bool asks = !routine->Parameters.empty() || routine->Input == RoutineInput::Two;
        const bool promises = std::string(entry.Text).find("...") != std::string::npos;
        CHECK(promises == asks);
        CHECK((entry.Need == Needs::Image) == (InputCount(*routine) > 0));
    }
    CHECK(routines == AllRoutines().size());
}

TEST_CASE("the help of gestures has headings and pairs")
{
    int headings = 0, pairs = 0;
    for (const char* line : GestureHelp()) {
        const std::string text = line;
        const std::size_t tab = text.find('\t');
        if (tab == std::string::npos) {
            ++headings;
            continue;
        }
        ++pairs;
        CHECK(tab > 0);
        CHECK(tab + 1 < text.size());
        CHECK(text.find('\t', tab + 1) == std::string::npos);
    }
    CHECK(headings >= 3);
    CHECK(pairs > headings);
}
