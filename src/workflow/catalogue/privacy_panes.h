// The panes of Privacy.
#pragma once

#include "workflow/catalogue/page_pane.h"
#include "workflow/catalogue/privacy_views.h"

#include <cstddef>
#include <string>

namespace brixen::pvn::pvn_workflow {

struct PrivacyData;

namespace privacy {

extern const PageTraits kMissingTraits; // the statement cannot be shown
extern const PageTraits kNoneTraits;    // there are no languages to choose from

class PrivacyPane : public PagePane {
public:
    using PagePane::PagePane;

    // Takes the choice that the pane offers into the run, before the user goes on.
    virtual void TakeChoice() {}
    // Puts the focus where the pane wants it once it is on screen.
    virtual void TakeFirstFocus() {}
    // Whether Enter and Esc come as keys: a field of several lines keeps them from the dialog.
    virtual bool HasFieldOfLines() const { return false; }
    // What a control of the pane tells its dialog.
    virtual void OnNotification(std::uint16_t id, std::uint16_t notification);
    // Tab moves the focus, and the frame with it.
    void OnTab();

protected:
    zeve::NativeWindow ControlOf(std::uint16_t viewId) const;
};

// A popup of the languages.
class ChoosePane final : public PrivacyPane {
public:
    explicit ChoosePane(PrivacyData& runData);

    void Enter() override;
    // Puts the language into the bag, and loads its statement.
    void TakeChoice() override;

private:
    void FillPopup();
    std::string WantedLanguage() const;

    PrivacyData& data;
    bool isFilled = false;
};

// The statement, in the field of its reading direction.
class StatementPane final : public PrivacyPane {
public:
    explicit StatementPane(const PrivacyData& runData);

    void Enter() override;
    void Leave() override;
    void TakeFirstFocus() override;
    bool HasFieldOfLines() const override { return true; }
    void OnNotification(std::uint16_t id, std::uint16_t notification) override;

private:
    struct Selection {
        std::uint32_t start = 0, end = 0;
    };

    const PrivacyData& data;
    std::uint16_t fieldId = kLeftToRightField;
    Selection selection; // when the field lost the focus
};

} // namespace privacy

} // namespace brixen::pvn::pvn_workflow
