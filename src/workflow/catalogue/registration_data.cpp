#include "workflow/catalogue/registration_data.h"

#include "values/unicode/lenient_text.h"
#include "workflow/catalogue/registration_views.h"
#include "workflow/catalogue/text_checks.h"
#include "workflow/context/context_keys.h"
#include "workflow/service/payload.h"
#include "workflow/service/service_call.h"
#include "workflow/service/service_text.h"

namespace brixen::pvn::pvn_workflow {

using namespace registration;

namespace {

constexpr FieldAlert kNameMissing{"$$$/pvn/alert/name_missing/title", "$$$/pvn/alert/name_missing/text"};
constexpr FieldAlert kEmailMissing{"$$$/pvn/alert/email_missing/title", "$$$/pvn/alert/email_missing/text"};
constexpr FieldAlert kEmailMalformed{"$$$/pvn/alert/email_malformed/title",
                                     "$$$/pvn/alert/email_malformed/text"};
constexpr FieldAlert kCountryMissing{"$$$/pvn/alert/country_missing/title",
                                     "$$$/pvn/alert/country_missing/text"};
constexpr FieldAlert kSerialMissing{"$$$/pvn/alert/serial_missing/title",
                                    "$$$/pvn/alert/serial_missing/text"};
constexpr FieldAlert kSerialMalformed{"$$$/pvn/alert/serial_malformed/title",
                                      "$$$/pvn/alert/serial_malformed/text"};

// The elements of the payload, and the texts of the bag that they hold.
constexpr struct {
    const char* element;
    const char* key;
} kFields[] = {
    {"name", PvnWFKey_RegistrationName},     {"organization", PvnWFKey_RegistrationOrganization},
    {"email", PvnWFKey_RegistrationEmail},   {"country", PvnWFKey_RegistrationCountry},
    {"serial", PvnWFKey_RegistrationSerial}, {"news", PvnWFKey_RegistrationNews},
    {"locale", PvnWFKey_PageLocale},         {"product", PvnWFKey_ProductName},
};

} // namespace

constexpr OperationTraits kRegisterOperation{"PvnWF_Register", &RegisterProduct, "Registered"};

std::optional<FieldFault> FaultOfDetails(const RegistrationDetails& details) {
    if (details.name.empty()) return FieldFault{kNameField, kNameMissing};
    if (details.email.empty()) return FieldFault{kEmailField, kEmailMissing};
    if (!IsMailAddress(details.email)) return FieldFault{kEmailField, kEmailMalformed};
    if (details.country.empty()) return FieldFault{kCountryPopup, kCountryMissing};
    if (details.serial.empty()) return FieldFault{kSerialField, kSerialMissing};
    if (!IsSerialNumber(details.serial)) return FieldFault{kSerialField, kSerialMalformed};
    return std::nullopt;
}

void StoreDetails(T_StorageInterface& bag, const RegistrationDetails& details) {
    const auto store = [&bag](const char* key, const std::u16string& text) {
        SetString(bag, key, lyr::gen::LenientUtf8(text.c_str()));
    };
    store(PvnWFKey_RegistrationName, details.name);
    store(PvnWFKey_RegistrationOrganization, details.organization);
    store(PvnWFKey_RegistrationEmail, details.email);
    store(PvnWFKey_RegistrationSerial, details.serial);
    SetString(bag, PvnWFKey_RegistrationCountry, details.country);
    SetString(bag, PvnWFKey_RegistrationNews, details.wantsNews ? "1" : "0");
}

Status RegisterProduct(T_StorageInterface& workerBag, const WorkerNotifier& notifier) {
    PayloadWriter payload("registration");
    for (const auto& field : kFields) payload.Add(field.element, StringOf(workerBag, field.key));
    std::string answer;
    const Status status = CallService(workerBag, "registerProduct", payload.Text(), answer, notifier);
    if (status != kStatusSuccess) return status;
    std::string number;
    if (!ReadPayloadField(answer, "registered", "number", number) || !IsConfirmationNumber(number)) {
        return RefuseAnswer(answer);
    }
    SetString(workerBag, PvnWFKey_ConfirmationNumber, number);
    return kStatusSuccess;
}

void RegistrationContext::FillWorkerBag(T_StorageInterface& workerValues) {
    OperationContext::FillWorkerBag(workerValues);
    for (const auto& field : kFields) CopyString(*this, workerValues, field.key);
}

std::span<const OperationTraits> RegistrationContext::Operations() const { return {&kRegisterOperation, 1}; }

void RegistrationContext::TakeResults(T_StorageInterface& workerValues) {
    CopyString(workerValues, *this, PvnWFKey_ConfirmationNumber);
}

} // namespace brixen::pvn::pvn_workflow
