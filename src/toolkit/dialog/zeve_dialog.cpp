#include "toolkit/dialog/zeve_dialog.h"

#include "toolkit/boxes/box_makers.h"
#include "toolkit/boxes/eve_box.h"
#include "toolkit/boxes/eve_edit_number.h"
#include "toolkit/boxes/eve_hyperlink.h"
#include "toolkit/dialog/dialog_registry.h"
#include "toolkit/dialog/modal_run.h"
#include "toolkit/dialog/operation_boundary.h"
#include "toolkit/dialog/window_procedures.h"
#include "toolkit/dialog/zeve_generator.h"
#include "toolkit/dialog_link.h"
#include "toolkit/event_record.h"
#include "toolkit/language_tag.h"
#include "toolkit/platform/toolkit_platform.h"
#include "toolkit/toolkit_state.h"
#include "toolkit/view_constants.h"
#include "view/reader/run_definition.h"
#include "view/verify_generator.h"

#include <memory>
#include <stdexcept>
#include <string>
#include <utility>

namespace brixen::zeve {

class ZeveDialog : public DialogLink {
public:
    explicit ZeveDialog(const ZeveInitRecord& record);
    NativeWindow Make(void* params);
    void RequireNoBoxes() const;

    std::uint64_t parentReference;
    std::uint64_t flags;
    std::string viewText, extraText, language;
    CZeveGenerator zeveGenerator{this};
    CVerifyGenerator verifyGenerator;
    std::unique_ptr<CExpressViewScope> rootScope, verifyScope;
    NativeModule instance;
    NativeWindow parentWindow;

private:
    void DefineDialogVariables();
};

namespace {

std::string TextOrEmpty(const char* text) { return text != nullptr ? text : ""; }

void InitializeOnce() {
    if (gToolkit.isInitialized) return;
    FillKeywordTable();
    gToolkit.richEdit = platform::LoadRichEdit();
    platform::RegisterCommonControls();
    gToolkit.isInitialized = true;
}

// Returns null if there is no such box, or no box at all.
CEveBox* FindBox(const ZeveDialog* dialog, std::uint16_t viewId) {
    CEveBox* root = Existing(dialog).rootBox;
    return root != nullptr ? root->FindByViewId(viewId) : nullptr;
}

CEveBox& BoxOf(const ZeveDialog* dialog, std::uint16_t viewId) { return Existing(FindBox(dialog, viewId)); }

// Frees the text of the record.
BoxValue TakeValue(const EventRecord& record) {
    BoxValue value;
    if (record.Has(kKeyValueBoolean)) value.number = record.Read(kKeyValueBoolean);
    if (!record.Has(kKeyValueString)) return value;
    const std::unique_ptr<const char[]> text(record.ReadPointer<const char*>(kKeyValueString));
    value.text = text.get();
    return value;
}

} // namespace

ZeveDialog::ZeveDialog(const ZeveInitRecord& record)
    : parentReference(record.parentReference), flags(record.flags), extraText(TextOrEmpty(record.extraText)),
      language(TextOrEmpty(record.language)),
      rootScope(CreateViewScope(nullptr, &zeveGenerator, nullptr, nullptr, true)),
      verifyScope(CreateViewScope(nullptr, &verifyGenerator, nullptr, nullptr, true)),
      instance(record.instance), parentWindow(record.parentWindow) {
    InstallWindowProcedures();
    callback = record.callback;
    zeveGenerator.rightToLeft = verifyGenerator.rightToLeft = IsRightToLeftLanguage(language);
}

void ZeveDialog::DefineDialogVariables() {
    const std::int64_t readOnly = (flags & kZeveReadOnly) != 0;
    rootScope->DefineNumber("__read_only_mode"_name, readOnly);
    rootScope->DefineNumber("read_only_aware"_name, readOnly);
    rootScope->DefineNumber("rtl_aware"_name, (flags & kZeveRightToLeftAware) != 0);
    rootScope->DefineNumber("check_box_aware"_name, (flags & kZeveCheckBoxAware) != 0);
    rootScope->DefineNumber("__hInstance"_name, ReferenceNumber(instance));
    rootScope->DefineNumber("__parent"_name, static_cast<std::int64_t>(parentReference));
    rootScope->DefineNumber("__parentWindow"_name, ReferenceNumber(parentWindow));
    rootScope->DefineNumber("__callback"_name, CallbackNumber(callback));
    rootScope->DefineNumber("__callback_params"_name, ReferenceNumber(callbackParams));
    rootScope->DefineNumber("__zeveInternalObj"_name, ReferenceNumber(static_cast<DialogLink*>(this)));
    rootScope->DefineString("__languageInfo"_name, language);
}

NativeWindow ZeveDialog::Make(void* params) {
    InstallViewConstants(*rootScope);
    FillKeywordTable();
    callbackParams = params;
    DefineDialogVariables();
    RequireNoBoxes();
    rootBox = RunDefinition(*rootScope, viewText.c_str());
    rootScope = CreateViewScope(nullptr, &zeveGenerator, nullptr, nullptr, false);
    return rootBox != nullptr ? rootBox->TopLevelWindow() : nullptr;
}

void ZeveDialog::RequireNoBoxes() const {
    if (rootBox != nullptr) throw std::logic_error("You have already used this instance to create a dialog.");
}

void ZeveInitialize() {
    try {
        InitializeOnce();
    } catch (const std::exception&) {
        throw;
    } catch (...) {
        throw std::logic_error("Exception thrown at Zeve initialization.");
    }
}

ZeveDialog* ZeveNew(const ZeveInitRecord* record) {
    return PassingStandardExceptions([&] {
        if (record == nullptr) throw std::logic_error("Invalid Zeve dialog initialization record pointer.");
        auto dialog = std::make_unique<ZeveDialog>(*record);
        RegisterDialog(*dialog);
        return dialog.release();
    });
}

void ZeveAddViewText(ZeveDialog* dialog, const char* text) {
    PassingStandardExceptions([&] { Existing(dialog).viewText += TextOrEmpty(text); });
}

void ZeveDefineText(ZeveDialog* dialog, std::string_view name, std::string_view text) {
    PassingStandardExceptions([&] {
        Existing(dialog).RequireNoBoxes();
        dialog->rootScope->DefineString(name, text);
    });
}

NativeWindow ZeveMakeDialog(ZeveDialog* dialog, void* params) {
    return PassingStandardExceptions([&] { return Existing(dialog).Make(params); });
}

NativeWindow ZeveFillPlace(const EventRecord& record) {
    return PassingStandardExceptions([&]() -> NativeWindow {
        const auto& attributes = Existing(record.ReadPointer<const CExpressionScope*>(kKeyScope));
        auto* box = ReferenceFrom<CEveBox>(attributes.GetLongOr("__eveBoxObj"_name, 0));
        auto* place = dynamic_cast<CEveHyperlink*>(box);
        if (place == nullptr) return nullptr;
        place->Fill(attributes);
        return place->control;
    });
}

bool ZeveRunModal(ZeveDialog* dialog) {
    return PassingStandardExceptions([&] {
        ZeveDialog& running = Existing(dialog);
        return RunModally(running, running.parentWindow);
    });
}

void ZeveDelete(ZeveDialog* dialog) {
    if (dialog == nullptr) return;
    const std::unique_ptr<ZeveDialog> owned(dialog);
    if (gToolkit.richEdit != nullptr) platform::UnloadModule(std::exchange(gToolkit.richEdit, nullptr));
    // The last message of its window no longer finds the dialog, so its run is ended here.
    EndModalRun(*dialog, kEndNegative);
    UnregisterDialog(*dialog);
    dialog->zeveGenerator.DeleteBoxes();
}

NativeWindow ZeveTopWindow(ZeveDialog* dialog) {
    return PassingStandardExceptions([&]() -> NativeWindow {
        const CEveBox* root = Existing(dialog).rootBox;
        return root != nullptr ? root->TopLevelWindow() : nullptr;
    });
}

void ZeveRetranslate(ZeveDialog* dialog) {
    PassingStandardExceptions([&] { Existing(Existing(dialog).rootBox).Retranslate(); });
}

bool ZeveSetValue(ZeveDialog* dialog, std::uint16_t viewId, const EventRecord& record) {
    return PassingStandardExceptions([&] {
        CEveBox* box = FindBox(dialog, viewId);
        if (box != nullptr) box->SetValue(record);
        return box != nullptr;
    });
}

BoxValue ZeveGetValue(ZeveDialog* dialog, std::uint16_t viewId, bool honorSubCheck) {
    return PassingStandardExceptions([&]() -> BoxValue {
        CEveBox* box = FindBox(dialog, viewId);
        if (box == nullptr) return {};
        EventRecord record;
        box->GetValue(record, honorSubCheck);
        return TakeValue(record);
    });
}

std::optional<ShownNumber> ZeveShownNumber(ZeveDialog* dialog, std::uint16_t viewId) {
    return PassingStandardExceptions([&]() -> std::optional<ShownNumber> {
        const auto* field = dynamic_cast<CEveEditNumber*>(FindBox(dialog, viewId));
        if (field == nullptr) return {};
        auto [text, isEdited, mayBeGrouped] = field->ShownNumber();
        return ShownNumber{std::move(text), isEdited, mayBeGrouped};
    });
}

NativeWindow ZeveSubControl(ZeveDialog* dialog, std::uint16_t viewId) {
    return PassingStandardExceptions([&]() -> NativeWindow {
        const CEveBox* box = FindBox(dialog, viewId);
        return box != nullptr ? box->subControl : nullptr;
    });
}

void ZeveShow(ZeveDialog* dialog, std::uint16_t viewId) {
    SwallowingExceptions([&] { BoxOf(dialog, viewId).SetVisible(true); });
}

void ZeveHide(ZeveDialog* dialog, std::uint16_t viewId) {
    SwallowingExceptions([&] { BoxOf(dialog, viewId).SetVisible(false); });
}

void ZeveEnable(ZeveDialog* dialog, std::uint16_t viewId) {
    SwallowingExceptions([&] { BoxOf(dialog, viewId).SetEnabled(true); });
}

void ZeveDisable(ZeveDialog* dialog, std::uint16_t viewId) {
    SwallowingExceptions([&] { BoxOf(dialog, viewId).SetEnabled(false); });
}

} // namespace brixen::zeve
