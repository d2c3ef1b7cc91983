#pragma once

#include "CATDlgControls.h"
#include "CATDlgDialog.h"
#include "CATIDOMDocument.h"

#include <functional>

/// The frame in which the user of a preview chooses how values are shown: with the symbols of their
/// units, with trailing zeros. The choice is remembered for the user's next preview.
///
/// A number of digits is remembered too. Its spinner is hidden and no value is shown with it: what
/// other programs have stored there is kept for them.
///
/// Values are shown anew in the units that they were converted to. When the user chooses another
/// unit meanwhile, that is not possible any more: the choices are greyed then, and the note beside
/// them says that the report can be made again.
class WBDisplayOptions
{
public:
    WBDisplayOptions() = default;
    WBDisplayOptions(const WBDisplayOptions&) = delete;
    WBDisplayOptions& operator=(const WBDisplayOptions&) = delete;
    ~WBDisplayOptions();

    /// Who is told that the user, or a remembered choice, has changed a control.
    struct Handlers
    {
        std::function<void()> onUnits;
        std::function<void()> onTrailingZeros;
        std::function<void()> onDigits;
    };

    /// The three operations that every preview has for this.
    template <class Preview>
    static Handlers HandlersOf(Preview& preview)
    {
        return {[&preview] { preview.OnUnitsDisplayNotification(); },
                [&preview] { preview.OnTrailingZeroNotification(); },
                [&preview] {
                    preview.OnTrailingDigitsNotification();
                }};
    }

    /// Makes the frame in that cell of the dialog's grid, over so many columns. The dialog owns the
    /// controls.
    void Build(CATDlgDialog& dialog, int row, int column, const Handlers& handlers,
               int columns = 1);
    bool IsBuilt() const { return m_units != nullptr; }
    /// The document was just converted: says beside the choices in which units its values stand.
    void TellUnits(const CATIDOMDocument& document);

    /// Puts the controls as they were remembered. Each that is thereby turned on tells its handler,
    /// as if the user had done it, so that the report follows; digits outside 1 to 8 and what
    /// cannot be read become 8 without a word.
    void ApplySaved();
    /// Remembers how the controls stand, or everything off and no digits where they were never
    /// made.
    void Store() const;

    /// Whether values are shown with their symbols, 1 or 0. 0 without controls, as below.
    unsigned char WithUnits() const;
    /// The decimals that the services are asked for: -1, as many as the unit has, with trailing
    /// zeros, or 0, no more than the value needs.
    int Decimals() const;
    /// The spinner's up button becomes usable whatever its value is.
    void EnableUpButton();

private:
    void SetChoosable(bool choosable);

    CATDlgCheckButton* m_units = nullptr;
    CATDlgCheckButton* m_trailingZeros = nullptr;
    CATDlgSpinner* m_digits = nullptr;
    CATDlgLabel* m_unitsNote = nullptr;
    int m_unitListener = 0;
};
