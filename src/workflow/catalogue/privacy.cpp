#include "workflow/catalogue/privacy.h"

#include "workflow/catalogue/privacy_data.h"
#include "workflow/catalogue/privacy_host.h"
#include "workflow/catalogue/privacy_panes.h"
#include "workflow/panes/dialog_state_machine.h"
#include "workflow/resources/resource_layer.h"

namespace brixen::pvn::pvn_workflow {

namespace {

constexpr std::uint16_t kStateChoose = 1;
constexpr std::uint16_t kStateStatement = 2;
constexpr std::uint16_t kStateMissing = 3;
constexpr std::uint16_t kStateNone = 4;

} // namespace

PVNPrivacyWorkFlow::PVNPrivacyWorkFlow(PVNWorkFlowContext& context)
    : PVNWorkFlow(context), data(std::make_unique<PrivacyData>()) {}

PVNPrivacyWorkFlow::~PVNPrivacyWorkFlow() = default;

void PVNPrivacyWorkFlow::Build(bool) {
    LoadWorkFlowDictionary("Privacy");
    data->languages = PopupRows(PrivacyStatementLanguages());
    SetHost(std::make_unique<PVNPrivacyHost>(LoadViewDescription("privacy"), *data));
    SetTransitions();
    SetPanes();
    machine->startState = data->languages.empty() ? kStateNone : kStateChoose;
}

void PVNPrivacyWorkFlow::SetTransitions() {
    machine->SetTransition(kStateChoose, kStateStatement, privacy::kEventContinue);
    machine->SetTransition(kStateChoose, kStateMissing, privacy::kEventMissing);
    machine->SetTransition(kStateStatement, kWFState_BackUnset, kEventGoBack);
    machine->SetTransition(kStateStatement, kWFState_Done, privacy::kEventAccept);
    machine->SetTransition(kStateStatement, kWFState_Exit, privacy::kEventDecline);
    machine->SetTransition(kStateMissing, kWFState_BackUnset, kEventGoBack);
    for (const std::uint16_t state : {kStateChoose, kStateStatement, kStateMissing, kStateNone}) {
        machine->SetTransition(state, kWFState_Exit, privacy::kEventCancel);
    }
}

void PVNPrivacyWorkFlow::SetPanes() {
    SetPane(kStateChoose, std::make_unique<privacy::ChoosePane>(*host, *data));
    SetPane(kStateStatement, std::make_unique<privacy::StatementPane>(*data));
    SetPane(kStateMissing, std::make_unique<privacy::PrivacyPane>(privacy::kMissingTraits));
    SetPane(kStateNone, std::make_unique<privacy::PrivacyPane>(privacy::kNoneTraits));
}

} // namespace brixen::pvn::pvn_workflow
