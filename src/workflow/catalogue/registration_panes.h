// The panes of Registration that show or take something.
#pragma once

#include "workflow/catalogue/field_pane.h"
#include "workflow/catalogue/problem_pane.h"
#include "workflow/catalogue/registration_data.h"
#include "workflow/controls/hyper_link.h"
#include "workflow/worker/busy_pane.h"

namespace brixen::pvn::pvn_workflow::registration {

extern const PageTraits kSettingsTraits;    // of the page of connection settings
extern const PageTraits kRegisteringTraits; // of the busy pane
extern const BusyTraits kRegisteringBusy;
extern const ProblemTraits kProblemTraits;

// Names the product.
class IntroductionPane final : public FieldPane {
public:
    IntroductionPane();

    void Enter() override;

private:
    HyperLink privacyLink, connectionLink;
};

// The fields to fill in. It has no default button, so that Enter never sends the details.
class DetailsPane final : public FieldPane {
public:
    DetailsPane();

    // Begins in the serial number if the service has refused the registration.
    void Enter() override;
    [[nodiscard]] bool TakeEntries() override;

private:
    RegistrationDetails ReadDetails() const;
    std::u16string LineOf(std::uint16_t field) const;

    bool isCountrySelected = false;
};

// The confirmation number, which can be copied.
class RegisteredPane final : public FieldPane {
public:
    RegisteredPane();

    void Enter() override;
};

} // namespace brixen::pvn::pvn_workflow::registration
