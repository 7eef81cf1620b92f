// The panes of Privacy.
#pragma once

#include "workflow/catalogue/field_pane.h"
#include "workflow/catalogue/privacy_views.h"
#include "workflow/panes/window_message.h"

#include <cstdint>
#include <string>

namespace brixen::pvn::pvn_workflow {

class PVNPaneHost;
struct PrivacyData;

namespace privacy {

extern const PageTraits kMissingTraits; // the statement cannot be shown
extern const PageTraits kNoneTraits;    // there are no languages to choose from

class PrivacyPane : public FieldPane {
public:
    using FieldPane::FieldPane;

    // Takes the choice that the pane offers into the run, before the user goes on.
    virtual void TakeChoice() {}
    // Whether Enter and Esc arrive as keys: a field of several lines keeps them from the dialog.
    virtual bool HasFieldOfLines() const { return false; }
};

// A popup of the languages.
class ChoosePane final : public PrivacyPane {
public:
    // Both are borrowed.
    ChoosePane(PVNPaneHost& paneHost, PrivacyData& runData);

    void Enter() override;
    // Stores the language in the bag, and loads its statement.
    void TakeChoice() override;

private:
    void FillPopup();
    std::string WantedLanguage() const;

    PVNPaneHost& host;
    PrivacyData& data;
    bool isFilled = false;
};

// The statement, in the field of its reading direction. It has no default button, so that Enter never accepts
// a statement unread.
class StatementPane final : public PrivacyPane {
public:
    // `runData` is borrowed.
    explicit StatementPane(const PrivacyData& runData);

    void Enter() override;
    void Leave() override;
    bool HasFieldOfLines() const override { return true; }

private:
    void OnNotification(Notification notification) override;

    struct Selection {
        std::uint32_t start = 0, end = 0; // UTF-16 units
    };

    const PrivacyData& data;
    std::uint16_t group = kLeftToRightGroup; // of the field and its label
    Selection selection;                     // of the field when it last lost the focus
};

} // namespace privacy

} // namespace brixen::pvn::pvn_workflow
