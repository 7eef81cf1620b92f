#include "net/transport/transaction.h"

#include "net/transport/transaction_state.h"
#include "net/transport/transport_error.h"

namespace brixen::pvn {
namespace {

// In this order. The host's name in the first one is a part of the format.
constexpr const char16_t* kHeaders[] = {
    u"Host: ops",
    u"User-Agent: PVN",
    u"Content-Type: text/xml; charset=utf-8",
    u"Connection: close",
    u"SOAPAction: urn:#pvnCallRequest",
};

// The system's own limits end later than ours, so that a call that is too slow always has the same status.
constexpr std::uint32_t kSystemLimitBeyondOurs = 1000; // milliseconds

// The status of a call of the system that just failed, which is never 0.
Status LogLastError() noexcept {
    const Status status = LogTransportError(LastSystemError());
    return status != kStatusSuccess ? status : kStatusSystemError;
}

// The handles of one request, which are closed in reverse order.
struct OpenedRequest {
    HttpHandle session;
    HttpHandle connection;
    HttpHandle request;

    // Returns whether all three are open. After a failure the system's last error says why.
    bool Open(const TransactionRequest& wanted, const CallLimit& limit) {
        session.reset(OpenSession(u"PVN_CLIENT", wanted.proxy.empty() ? nullptr : wanted.proxy.c_str()));
        if (!session) return false;
        SetPhaseLimits(session.get(), limit.Milliseconds() + kSystemLimitBeyondOurs);
        connection.reset(OpenConnection(session.get(), wanted.url.host.c_str(), wanted.url.port));
        if (!connection) return false;
        request.reset(OpenRequest(connection.get(), u"POST", wanted.url.path.c_str(), wanted.url.isSecure));
        return request != nullptr;
    }
};

} // namespace

Status RunTransaction(const TransactionRequest& request, const CallLimit& limit, std::string& response) {
    const EventHandle done(MakeEvent(nullptr));
    if (!done) return LogLastError();
    OpenedRequest opened;
    if (!opened.Open(request, limit)) return LogLastError();
    for (const char16_t* const header : kHeaders) AddHeader(opened.request.get(), header);
    const TransactionState::Reference state = TransactionState::Make(request.body, done.get());
    if (!ObserveRequest(opened.request.get(), *state)) {
        const Status status = LogLastError();
        state->ReleaseRequest();
        return status;
    }
    SendRequest(opened.request.get(), *state, state->Body());
    const Status early = StatusOfWait(limit.Await(done.get()));
    const Status ended = state->Abandon(response);
    return early != kStatusSuccess ? early : ended;
}

} // namespace brixen::pvn
