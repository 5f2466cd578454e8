#include "controls/widgets/MEditFloat.h"

#include "core/errors/MException.h"
#include "core/locale/MResourceLocale.h"
#include "platform/ui/attachment.h"

namespace hx {
namespace {

constexpr ui::Colour kValid{255, 255, 255};
constexpr ui::Colour kInvalid{255, 176, 176};

// Of a language whose numbers are not known, those of C.
MLocale LocaleInUse() {
    try {
        return MLocale(MResourceLocale::LanguageTag());
    } catch (const MException&) {
        return MLocale::C();
    }
}

}  // namespace

MEditFloat::MEditFloat() : m_locale(LocaleInUse()) {}

void MEditFloat::OnAttached(const DialogControl& line) {
    Edit::OnAttached(line);
    m_locale = LocaleInUse();
}

void MEditFloat::SetClamp(double minimum, double maximum) {
    m_clamped = true;
    m_minimum = minimum;
    m_maximum = maximum;
}

bool MEditFloat::Parse() {
    double value = 0;
    if (!m_locale.ToDouble(Text(), value)) return false;
    if (m_clamped && value < m_minimum) value = m_minimum;
    if (m_clamped && value > m_maximum) value = m_maximum;
    m_value = value;
    return true;
}

bool MEditFloat::IsValid(bool empty_is_invalid) const {
    if (Text().empty()) return !empty_is_invalid;
    double value = 0;
    return m_locale.ToDouble(Text(), value);
}

void MEditFloat::OnUpdate() {
    Parse();
    Edit::OnUpdate();
}

void MEditFloat::OnTyped() {
    Edit::OnTyped();
    Invalidate();
}

bool MEditFloat::BackgroundColour(ui::Colour& colour) {
    colour = IsValid() ? kValid : kInvalid;
    return true;
}

void MEditFloat::OnFocus(bool gained) {
    const ui::Attachment attachment(*this);
    if (!gained && Parse()) {
        std::wstring text = m_locale.ToString(m_value, m_decimals, false);
        if (text != Text()) {
            const Selection selection = GetSelection();
            SetText(std::move(text));
            // The page, which was told, may have gone.
            if (attachment.Get() != nullptr) SetSelection(selection);
        }
    }
    if (attachment.Get() != nullptr) Edit::OnFocus(gained);
}

}  // namespace hx
