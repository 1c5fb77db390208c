#include "RoutineDialog.h"

#include <cwchar>

namespace vostel::viewer {

namespace {

std::wstring TextOfNumber(double value)
{
    wchar_t text[40];
    std::swprintf(text, 40, L"%.6g", value);
    return text;
}

// The whole text as one number; anything else is not a number.
bool ParseNumber(const std::wstring& text, double& value)
{
    const std::size_t first = text.find_first_not_of(L" \t");
    const std::size_t last = text.find_last_not_of(L" \t");
    if (first == std::wstring::npos)
        return false;
    const std::wstring digits = text.substr(first, last - first + 1);
    wchar_t*           end = nullptr;
    value = std::wcstod(digits.c_str(), &end);
    return end == digits.c_str() + digits.size();
}

}

RoutineDialog::RoutineDialog(const RoutineQuestion& question, Language language)
    : FormDialog(question.Asked->Title, language), Values(question.Values), Second(question.Second),
      Question(question)
{
    const Routine& routine = *question.Asked;
    if (!question.Sources.empty()) {
        std::vector<std::wstring> names;
        int                       chosen = 0;
        for (const RoutineQuestion::Source& source : question.Sources) {
            if (source.Canvas == question.Second)
                chosen = static_cast<int>(names.size());
            names.push_back(source.Name);
        }
        SecondRow = AddChoice(Text(Words("Second image")), names, chosen);
    }
    for (std::size_t i = 0; i < Values.size(); ++i) {
        const RoutineParameter& parameter = routine.Parameters[i];
        if (parameter.Kind != ParameterKind::Choice) {
            AddText(Text(parameter.Name), TextOfNumber(Values[i]));
            continue;
        }
        std::vector<std::wstring> choices;
        for (const char* choice : parameter.Choices)
            choices.push_back(Text(choice));
        AddChoice(Text(parameter.Name), choices, static_cast<int>(Values[i]));
    }
}

std::wstring RoutineDialog::LimitsOf(const RoutineParameter& parameter) const
{
    return L" " +
           Filled(Text(Words("From %1 to %2.")), {TextOfNumber(parameter.Low), TextOfNumber(parameter.High)});
}

bool RoutineDialog::Read()
{
    const Routine&      routine = *Question.Asked;
    const int           firstRow = SecondRow + 1;
    std::vector<double> read = Values;
    for (std::size_t i = 0; i < read.size(); ++i) {
        const int row = firstRow + static_cast<int>(i);
        if (routine.Parameters[i].Kind == ParameterKind::Choice) {
            read[i] = ChoiceOf(row);
        } else if (!ParseNumber(TextOf(row), read[i])) {
            ShowProblem(row, Text(Words("This is not a number.")) + LimitsOf(routine.Parameters[i]));
            return false;
        }
    }
    std::size_t wrong = 0;
    if (const char* const problem = CheckValues(routine, read, &wrong)) {
        ShowProblem(firstRow + static_cast<int>(wrong), Text(problem) + LimitsOf(routine.Parameters[wrong]));
        return false;
    }
    Values = read;
    if (SecondRow >= 0)
        Second = Question.Sources[static_cast<std::size_t>(ChoiceOf(SecondRow))].Canvas;
    return true;
}

}
