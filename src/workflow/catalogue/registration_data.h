// What a user enters to register the product, and what the service answers.
#pragma once

#include "workflow/catalogue/field_pane.h"
#include "workflow/worker/operation_context.h"

#include <optional>
#include <span>
#include <string>

namespace brixen::pvn::pvn_workflow {

// Strings: the details that are sent. Written when the user goes on to send them.
inline constexpr char PvnWFKey_RegistrationName[] = "PvnWFKey_RegistrationName";
inline constexpr char PvnWFKey_RegistrationOrganization[] = "PvnWFKey_RegistrationOrganization";
inline constexpr char PvnWFKey_RegistrationEmail[] = "PvnWFKey_RegistrationEmail";
inline constexpr char PvnWFKey_RegistrationCountry[] = "PvnWFKey_RegistrationCountry"; // as "DE"
inline constexpr char PvnWFKey_RegistrationSerial[] = "PvnWFKey_RegistrationSerial";
inline constexpr char PvnWFKey_RegistrationNews[] = "PvnWFKey_RegistrationNews"; // "1" or "0"
// String: the service's number for the registration: 1 to 32 of letters, digits and `-`.
inline constexpr char PvnWFKey_ConfirmationNumber[] = "PvnWFKey_ConfirmationNumber";

// The texts of the fields, without blanks at their ends.
struct RegistrationDetails {
    std::u16string name, organization, email, serial;
    std::string country; // empty if none is chosen
    bool wantsNews = false;
};

// Returns the first fault in the order of the page.
[[nodiscard]] std::optional<FieldFault> FaultOfDetails(const RegistrationDetails& details);

void StoreDetails(T_StorageInterface& bag, const RegistrationDetails& details);

// Sends the details of the bag, and stores the confirmation number there.
[[nodiscard]] Status RegisterProduct(T_StorageInterface& workerBag, const WorkerNotifier& notifier);

extern const OperationTraits kRegisterOperation;

class RegistrationContext final : public OperationContext {
public:
    using OperationContext::OperationContext;

    void FillWorkerBag(T_StorageInterface& workerValues) override;

protected:
    std::span<const OperationTraits> Operations() const override;
    void TakeResults(T_StorageInterface& workerValues) override;
};

} // namespace brixen::pvn::pvn_workflow
