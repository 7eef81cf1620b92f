// The pane of Feedback that shows what will be sent, and lets the user add the end of the log.
#pragma once

#include "toolkit/platform/native_types.h"
#include "workflow/catalogue/field_pane.h"

#include <cstddef>
#include <string>
#include <vector>

namespace brixen::pvn::pvn_workflow::feedback {

// It has no default button, so that Enter never sends anything.
class StoragePane final : public FieldPane {
public:
    StoragePane();

    // Reads the log anew.
    void Enter() override;
    void Leave() override;
    // Follows the slider.
    void OnMessage(const WindowMessage& message) override;

private:
    void ShowDrive();
    void ShowGauge(std::uint16_t used, std::uint16_t total, const std::string& unit);
    void OfferLog();
    void TakeLog(std::size_t kib);
    void FillList();

    zeve::NativeWindow gauge = nullptr; // the dialog's
    std::string log;                    // what can be sent at most
    std::size_t kibOfLog = 0;           // chosen
};

} // namespace brixen::pvn::pvn_workflow::feedback
