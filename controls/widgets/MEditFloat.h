// An edit for a number, in the user's language: light red while it holds something else. On the thread of the
// user interface.
#pragma once

#include "core/locale/MLocale.h"
#include "platform/ui/controls.h"

namespace hx {

class MEditFloat : public ui::Edit {
public:
    MEditFloat();

    // Of the number when the caret leaves; a negative count is as 0.
    void SetDecimals(int32_t decimals) { m_decimals = decimals; }
    // The text's number becomes the value; false, and the value stays, if it has none.
    bool Parse();
    // An empty text is valid unless the argument says otherwise; any other one if it is a number.
    bool IsValid(bool empty_is_invalid = false) const;
    bool HoldsValidText() const override { return IsValid(); }
    // The last number that there was.
    double Value() const { return m_value; }
    // Numbers beyond are taken as the nearest bound.
    void SetClamp(double minimum, double maximum);

    // The number is written anew when the caret leaves, before the dialog is told that it did.
    void OnFocus(bool gained) override;
    // So that the colour follows at once.
    void OnTyped() override;
    bool BackgroundColour(ui::Colour& colour) override;

protected:
    // The language is that of the dialog.
    void OnAttached(const DialogControl& line) override;
    void OnUpdate() override;

private:
    MLocale m_locale;
    int32_t m_decimals = 2;
    bool m_clamped = false;
    double m_value = 0;
    double m_minimum = 0;
    double m_maximum = 0;
};

}  // namespace hx
