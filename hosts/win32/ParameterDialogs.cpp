#include "ParameterDialogs.h"

#include "RoutineDialog.h"
#include "TextDialogs.h"

#include <cwchar>
#include <optional>
#include <utility>

namespace vostel::viewer {

namespace {

using enum ParameterKind;

constexpr const char* DataTypes[] = {Words("16-bit unsigned"), Words("32-bit float"), Words("16-bit signed"),
                                     Words("8-bit unsigned")};    // in the order of their numbers
constexpr const char* NoYes[] = {Words("No"), Words("Yes")};

constexpr double MaxSide = 32768.0;           // px
constexpr double MaxHeader = 2147483647.0;    // bytes
constexpr double MaxSample = 1e30;

constexpr RoutineParameter LayoutParameters[] = {
    {Words("Width (px)"), Whole, 512, 1, MaxSide},
    {Words("Height (px)"), Whole, 512, 1, MaxSide},
    {Words("Data type"), Choice, 0, 0, 3, DataTypes},
    {Words("Bytes before the data"), Whole, 0, 0, MaxHeader},
    {Words("Map to 8 bits"), Choice, 0, 0, 1, NoYes},
    {Words("Value of the darkest gray"), Real, 0, -MaxSample, MaxSample},
    {Words("Value of the lightest gray"), Real, 65535, -MaxSample, MaxSample},
    {Words("Darkest gray"), Real, 0, 0, 255},
    {Words("Lightest gray"), Real, 255, 0, 255}};
constexpr RoutineParameter EdgeParameters[] = {{Words("Left edge (px)"), Whole, 0, -MaxSide, MaxSide},
                                               {Words("Right edge (px)"), Whole, 100, -MaxSide, MaxSide},
                                               {Words("Upper edge (px)"), Whole, 0, -MaxSide, MaxSide},
                                               {Words("Lower edge (px)"), Whole, 100, -MaxSide, MaxSide}};
constexpr RoutineParameter ScaleParameters[] = {{Words("Length of a pixel (mm)"), Real, 1, 1e-9, 1e9}};

// Asked for as the parameters of a routine are; nothing runs.
constexpr Routine Layout = {Command::Open, Words("Raw data"), RoutineInput::None, LayoutParameters, nullptr};
constexpr Routine Edges = {Command::DrawRectangleByNumbers, Words("Rectangle by numbers"), RoutineInput::None,
                           EdgeParameters, nullptr};
constexpr Routine PixelLength = {Command::MeasureScale, Words("Scale"), RoutineInput::None, ScaleParameters,
                                 nullptr};

class Asking {
public:
    Asking(HWND owner, const SettingsFile& settings, std::function<Language()> language)
        : Owner(owner), Settings(settings), Spoken(std::move(language))
    {
    }

    // The values of the form, at first those that were entered last.
    std::optional<std::vector<double>> Values(const Routine& form) const
    {
        RoutineQuestion question;
        question.Asked = &form;
        for (const RoutineParameter& parameter : form.Parameters) {
            const double last = Settings.LoadValue(form, parameter).value_or(parameter.Default);
            // Not in reach, for what is no number too.
            const bool isAllowed = last >= parameter.Low && last <= parameter.High;
            question.Values.push_back(isAllowed ? last : parameter.Default);
        }
        RoutineDialog dialog(question, Spoken());
        if (!dialog.Ask(Owner))
            return std::nullopt;
        for (std::size_t i = 0; i < dialog.Values.size(); ++i)
            Settings.SaveValue(form, form.Parameters[i], dialog.Values[i]);
        return dialog.Values;
    }

    bool Line(CString& text) const
    {
        TextLineDialog dialog(Settings.LoadTextLine(), Spoken());
        if (!dialog.Ask(Owner))
            return false;
        Settings.SaveTextLine(dialog.Entered);
        text = dialog.Entered.c_str();
        return true;
    }

private:
    HWND                      Owner;
    const SettingsFile&       Settings;
    std::function<Language()> Spoken;
};

bool AskLayout(const Asking& asking, tagZEKImaLoadPara& layout)
{
    const auto values = asking.Values(Layout);
    if (!values)
        return false;
    layout.Width = static_cast<std::int32_t>((*values)[0]);
    layout.Height = static_cast<std::int32_t>((*values)[1]);
    layout.DataType = static_cast<std::int32_t>((*values)[2]);
    layout.HeaderBytes = static_cast<std::uint32_t>((*values)[3]);
    layout.MapToByte = static_cast<std::int32_t>((*values)[4]);
    layout.InLow = static_cast<float>((*values)[5]);
    layout.InHigh = static_cast<float>((*values)[6]);
    layout.OutLow = static_cast<float>((*values)[7]);
    layout.OutHigh = static_cast<float>((*values)[8]);
    return true;
}

bool AskEdges(const Asking& asking, tagZEKImaROIRectPara& edges)
{
    const auto values = asking.Values(Edges);
    if (!values)
        return false;
    edges.RoiLeft = static_cast<std::int32_t>((*values)[0]);
    edges.RoiRight = static_cast<std::int32_t>((*values)[1]);
    edges.RoiTop = static_cast<std::int32_t>((*values)[2]);
    edges.RoiBottom = static_cast<std::int32_t>((*values)[3]);
    return true;
}

// The library reads the length of a pixel from a text.
bool AskScale(const Asking& asking, CString& text, const std::function<void(double)>& take)
{
    const auto values = asking.Values(PixelLength);
    if (!values)
        return false;
    wchar_t digits[40];
    std::swprintf(digits, 40, L"%.17g", values->front());
    text = digits;
    take(values->front());
    return true;
}

}

TessikDialogs ParameterDialogs(HWND owner, const SettingsFile& settings, std::function<Language()> language,
                               std::function<void(double length)> takePixelLength)
{
    const Asking  asking(owner, settings, std::move(language));
    TessikDialogs dialogs;
    dialogs.ImaLoadPara = [asking](tagZEKImaLoadPara& layout) { return AskLayout(asking, layout); };
    dialogs.ImaROIRectPara = [asking](tagZEKImaROIRectPara& edges) { return AskEdges(asking, edges); };
    dialogs.ImaGeneralPara = [asking, take = std::move(takePixelLength)](tagZEKImaGeneralPara& para,
                                                                         CString& section, CString&) {
        return section == L"MeasureScaleInfo" ? AskScale(asking, para.Value, take) : asking.Line(para.Value);
    };
    return dialogs;
}

}
