#include "net/transport/transaction.h"

#include "net/transport/transaction_state.h"
#include "net/transport/transport_error.h"
#include "support/failing_allocator.h"
#include "unit/net/transport/transport_fixture.h"

#include <chrono>
#include <optional>

namespace brixen::pvn {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Transaction : public TransportTest {
protected:
    Status Run(const Script& script) {
        GetNetTwin().script = script;
        response.clear();
        return RunTransaction(request, CallLimit(detail.timeoutSeconds), response);
    }

    // Whether an answer of these parts stalls: its last part is not read, and only the limit ends the call.
    bool Stalls(const std::vector<std::string>& parts) {
        const std::size_t reads = Calls("ReadData").size();
        Script script = HeadersOfAnswer();
        for (const std::string& part : parts) AddPart(script, part);
        script.insert(script.end() - 1, Cancel());
        EXPECT_EQ(Run(script), kStatusCallCanceled);
        return Calls("ReadData").size() == reads + parts.size() - 1;
    }

    TransactionRequest request{{u"service.test", u"/call", 80, false}, u"", "body"};
};

std::string Bytes(std::size_t length) { return std::string(length, 'x'); }

TEST_F(Transaction, CollectsAnAnswerInParts) {
    EXPECT_EQ(Run(Answer({"one ", "two ", "three"})), kStatusSuccess);
    EXPECT_EQ(response, "one two three");
    EXPECT_THAT(log.Bodies(), IsEmpty());
}

TEST_F(Transaction, CollectsAnAnswerByteByByte) {
    EXPECT_EQ(Run(Answer({"a", "b", "c"})), kStatusSuccess);
    EXPECT_EQ(response, "abc");
}

TEST_F(Transaction, AReadNeverCountsMoreThanWasAskedFor) {
    Script script = HeadersOfAnswer();
    script.push_back(Notice(HttpNotice::kDataAvailable, 5));
    script.push_back(Read("0123456789"));
    AddPart(script, "");
    EXPECT_EQ(Run(script), kStatusSuccess);
    EXPECT_EQ(response, "01234");
}

TEST_F(Transaction, TheFirstEndOfARequestCounts) {
    const EventHandle done(MakeEvent(nullptr));
    const TransactionState::Reference state = TransactionState::Make("body", done.get());
    state->OnNotice(nullptr, HttpNotice::kError, 12029);
    state->OnNotice(nullptr, HttpNotice::kError, 8);
    state->OnNotice(nullptr, HttpNotice::kClosed, 0);
    EXPECT_EQ(state->Abandon(response), kStatusHttpError);
    EXPECT_THAT(log.Bodies(), ElementsAre("PVN: _info_: windows error: 12029"));
}

TEST_F(Transaction, AnAnswerOfNoBytesIsASuccess) {
    EXPECT_EQ(Run(Answer({})), kStatusSuccess);
    EXPECT_EQ(response, "");
    GetNetTwin().readsNeedACall = false;
    Script script = HeadersOfAnswer();
    script.push_back(Read("")); // without any data before it, so that there is no buffer
    EXPECT_EQ(Run(script), kStatusSuccess);
    EXPECT_EQ(response, "");
}

TEST_F(Transaction, TheAnswerEndsAtItsFirstZeroByte) {
    EXPECT_EQ(Run(Answer({std::string("ab\0cd", 5)})), kStatusSuccess);
    EXPECT_EQ(response, "ab");
}

TEST_F(Transaction, AppendsToTheResponse) {
    GetNetTwin().script = Answer({"new"});
    EXPECT_EQ(RunTransaction(request, CallLimit(60), response), kStatusSuccess);
    EXPECT_EQ(response, "an earlier answernew");
}

TEST_F(Transaction, EachErrorHasItsStatusAndIsLoggedOnce) {
    const struct {
        std::uint32_t error;
        Status status;
    } kCases[] = {{8, 53410}, {12007, 53426}, {12006, 53411}, {5, 53409}, {12005, 53425}, {12175, 53427}};
    for (const auto& each : kCases) {
        const std::size_t lines = log.Bodies().size();
        EXPECT_EQ(Run({Notice(HttpNotice::kError, each.error)}), each.status);
        EXPECT_EQ(response, "");
        EXPECT_EQ(log.Bodies().size(), lines + 1);
        EXPECT_EQ(log.Bodies().back(), "PVN: _info_: windows error: " + std::to_string(each.error));
    }
}

TEST_F(Transaction, TheErrorZeroEndsItWithoutAStatusOrALine) {
    EXPECT_EQ(Run({Notice(HttpNotice::kError, 0)}), kStatusSuccess);
    EXPECT_EQ(response, "");
    EXPECT_THAT(log.Bodies(), IsEmpty());
}

TEST_F(Transaction, AnErrorInTheMiddleDropsTheAnswer) {
    Script script = HeadersOfAnswer();
    AddPart(script, "half");
    script.push_back(Notice(HttpNotice::kError, 12030));
    EXPECT_EQ(Run(script), kStatusHttpError);
    EXPECT_EQ(response, "");
}

TEST_F(Transaction, ASecureFailureIsLoggedAndItsErrorEndsTheCall) {
    EXPECT_EQ(Run({Notice(HttpNotice::kSecureFailure, 0x1A), Notice(HttpNotice::kError, 12175)}), 53427);
    EXPECT_THAT(log.Bodies(),
                ElementsAre("PVN: _info_: windows secure failure: 26", "PVN: _info_: windows error: 12175"));
}

TEST_F(Transaction, ASilentServerEndsByTheLimit) {
    detail.timeoutSeconds = 0;
    EXPECT_EQ(Run({}), kStatusCallTimedOut);
    EXPECT_EQ(Run(HeadersOfAnswer()), kStatusCallTimedOut);
    EXPECT_EQ(response, "");
}

TEST_F(Transaction, WaitsForWhatIsLeftOfTheLimit) {
    GetFrameTwin().tickCount = 0xFFFFFF00;
    const CallLimit limit(2);
    GetFrameTwin().tickCount = *GetFrameTwin().tickCount + 1500; // beyond the wrap of the count
    GetNetTwin().script = Answer({"answer"});
    EXPECT_EQ(RunTransaction(request, limit, response), kStatusSuccess);
    EXPECT_THAT(Calls("WaitForEither"), ElementsAre("500"));
    GetFrameTwin().tickCount = *GetFrameTwin().tickCount + 501;
    GetNetTwin().script = {};
    EXPECT_EQ(RunTransaction(request, limit, response), kStatusCallTimedOut);
    EXPECT_THAT(Calls("WaitForEither"), ElementsAre("500", "0"));
}

TEST_F(Transaction, AFailedWaitHasTheStatusOfTheState) {
    GetNetTwin().refusedCall = "WaitForEither";
    EXPECT_EQ(Run({}), kStatusSuccess);
    EXPECT_EQ(response, "");
}

TEST_F(Transaction, AFailedWaitAfterAnErrorHasTheStatusOfTheError) {
    GetNetTwin().refusedCall = "WaitForEither";
    std::atomic<bool> isOver = false;
    GetNetTwin().beforeWait = [&] {
        while (!isOver) std::this_thread::yield();
    };
    EXPECT_EQ(
        Run({Notice(HttpNotice::kError, 12007), After([&] { isOver = true; }, Notice(HttpNotice::kError))}),
        kStatusNameNotResolved);
    EXPECT_EQ(response, "");
}

TEST_F(Transaction, AFailedWaitAfterTheWholeAnswerIsASuccess) {
    GetNetTwin().refusedCall = "WaitForEither";
    std::atomic<bool> isOver = false;
    GetNetTwin().beforeWait = [&] {
        while (!isOver) std::this_thread::yield();
    };
    Script script = Answer({"answer"});
    script.push_back(After([&] { isOver = true; }, Notice(HttpNotice::kError)));
    EXPECT_EQ(Run(script), kStatusSuccess);
    EXPECT_EQ(response, "answer");
}

// The answer is complete when the waiter knows of the cancel and has not yet left.
TEST_F(Transaction, AnAnswerThatIsCompleteAfterACancelIsTaken) {
    std::atomic<bool> hasWaited = false, isOver = false;
    GetNetTwin().afterWait = [&] {
        hasWaited = true;
        while (!isOver) std::this_thread::yield();
    };
    Script script = Answer({"answer"});
    script.back().before = [&] {
        CancelTransaction();
        while (!hasWaited) std::this_thread::yield();
    };
    script.push_back(After([&] { isOver = true; }, Notice(HttpNotice::kError)));
    EXPECT_EQ(Run(script), kStatusCallCanceled);
    EXPECT_EQ(response, "answer");
}

TEST_F(Transaction, CancelEndsItInEachPhase) {
    Script script{After(CancelTransaction, Notice(HttpNotice::kSent))};
    EXPECT_EQ(Run({After(CancelTransaction, Notice(HttpNotice::kSent))}), kStatusCallCanceled);
    EXPECT_EQ(Run({Notice(HttpNotice::kSent), After(CancelTransaction, Notice(HttpNotice::kHeaders))}),
              kStatusCallCanceled);
    script = HeadersOfAnswer();
    script.push_back(Cancel());
    EXPECT_EQ(Run(script), kStatusCallCanceled);
    AddPart(script, "half");
    std::swap(script[2], script[3]);
    EXPECT_EQ(Run(script), kStatusCallCanceled);
    EXPECT_EQ(response, "");
}

TEST_F(Transaction, ReturnsAtOnceAfterACancel) {
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(Run({Cancel()}), kStatusCallCanceled);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(1));
}

TEST_F(Transaction, ASignalThatNobodyWaitedForEndsTheNextCallAtOnce) {
    const EventHandle cancel = MakeCancelEvent();
    CancelTransaction();
    EXPECT_EQ(Run({}), kStatusCallCanceled);
    EXPECT_EQ(Run(Answer({"answer"})), kStatusSuccess) << "one signal ends one wait";
}

TEST_F(Transaction, ASignalWithoutAnOpenEventIsLost) {
    CancelTransaction();
    EXPECT_EQ(Run(Answer({"answer"})), kStatusSuccess);
}

TEST_F(Transaction, AnEarlierSignalEndsNothingAfterItWasCleared) {
    const EventHandle earlier = MakeCancelEvent();
    CancelTransaction();
    const EventHandle owner = MakeClearCancelEvent();
    EXPECT_EQ(Run(Answer({"answer"})), kStatusSuccess);
    CancelTransaction();
    EXPECT_EQ(Run({}), kStatusCallCanceled) << "a later one ends the call, also before it waits";
}

TEST_F(Transaction, ACancelEventThatIsRefusedCannotBeCleared) {
    GetNetTwin().refusedCall = "MakeNamedEvent";
    EXPECT_EQ(MakeClearCancelEvent(), nullptr);
}

TEST_F(Transaction, WithoutTheCancelEventItWaitsForTheAnswerAlone) {
    GetNetTwin().refusedCall = "MakeNamedEvent";
    EXPECT_EQ(Run(Answer({"answer"})), kStatusSuccess);
    EXPECT_EQ(response, "answer");
}

TEST_F(Transaction, ARefusedHandleIsLoggedAndMapped) {
    GetNetTwin().error = 12007;
    for (const char* const call :
         {"MakeEvent", "OpenSession", "OpenConnection", "OpenRequest", "ObserveRequest"}) {
        GetNetTwin().refusedCall = call;
        EXPECT_EQ(Run(Answer({"answer"})), kStatusNameNotResolved) << call;
        EXPECT_EQ(response, "");
        EXPECT_EQ(log.Bodies().back(), "PVN: _info_: windows error: 12007");
        AwaitClosedRequests();
        EXPECT_EQ(OpenNetHandles(), 0) << call;
    }
    EXPECT_EQ(log.Bodies().size(), 5u);
    EXPECT_THAT(Calls("SendRequest"), IsEmpty());
}

TEST_F(Transaction, ARefusedHandleWithoutAnErrorIsAFailureToo) {
    GetNetTwin().refusedCall = "OpenConnection";
    EXPECT_EQ(Run(Answer({"answer"})), kStatusSystemError);
}

TEST_F(Transaction, ARefusedStepEndsByTheLimit) {
    detail.timeoutSeconds = 0;
    GetNetTwin().refusedCall = "SendRequest";
    EXPECT_EQ(Run(Answer({"answer"})), kStatusCallTimedOut);
}

TEST_F(Transaction, ReadsInStepsOfWhatIsAvailable) {
    EXPECT_EQ(Run(Answer({Bytes(8192), Bytes(100), Bytes(9000)})), kStatusSuccess);
    EXPECT_EQ(response, Bytes(17292));
    EXPECT_THAT(Calls("ReadData"), ElementsAre("8192", "100", "9000", "0"));
}

TEST_F(Transaction, AnAnswerThatLandsOnItsCapacityStalls) {
    EXPECT_TRUE(Stalls({Bytes(8191)}));
    EXPECT_FALSE(Stalls({Bytes(8190)}));
    EXPECT_FALSE(Stalls({Bytes(8192)}));
    EXPECT_TRUE(Stalls({Bytes(16383)}));
    EXPECT_TRUE(Stalls({Bytes(8000), Bytes(191)}));
    EXPECT_FALSE(Stalls({Bytes(8000), Bytes(192)}));
    EXPECT_TRUE(Stalls({Bytes(8192), Bytes(8191)}));
}

TEST_F(Transaction, WithoutMemoryForTheAnswerNoReadFollows) {
    std::optional<pavane_test::FailNthAllocation> failure;
    Script script = HeadersOfAnswer();
    script.push_back(After(
        [&] {
            AwaitWaiter();
            failure.emplace(1);
        },
        Notice(HttpNotice::kDataAvailable, 100)));
    script.push_back(After(
        [&] {
            failure.reset();
            CancelTransaction();
        },
        Notice(HttpNotice::kSecureFailure)));
    EXPECT_EQ(Run(script), kStatusCallCanceled);
    EXPECT_THAT(Calls("ReadData"), IsEmpty());
}

TEST_F(Transaction, WithoutMemoryForTwiceAsMuchItTakesWhatItNeeds) {
    std::optional<pavane_test::FailNthAllocation> failure;
    Script script = HeadersOfAnswer();
    AddPart(script, Bytes(16000));
    script.push_back(After(
        [&] {
            AwaitWaiter();
            failure.emplace(1);
        },
        Notice(HttpNotice::kDataAvailable, 500)));
    script.push_back(After([&] { failure.reset(); }, Read(Bytes(500))));
    AddPart(script, "");
    EXPECT_EQ(Run(script), kStatusSuccess);
    EXPECT_EQ(response.size(), 16500u);
}

TEST_F(Transaction, WithoutMemoryForTheResponseItThrows) {
    std::optional<pavane_test::FailNthAllocation> failure;
    Script script = Answer({Bytes(1000)});
    script.back().before = [&] {
        AwaitWaiter();
        failure.emplace(1);
    };
    EXPECT_THROW(static_cast<void>(Run(script)), std::bad_alloc);
}

TEST_F(Transaction, HttpSendReportsMissingMemoryAsAStatusWithoutMemory) {
    std::optional<pavane_test::FailNthAllocation> failure;
    GetNetTwin().script = Answer({Bytes(1000)});
    GetNetTwin().script.back().before = [&] {
        AwaitWaiter();
        failure.emplace(1);
    };
    EXPECT_EQ(Send(), 53410);
    EXPECT_EQ(response, "");
}

TEST_F(Transaction, TakesTwentyMebibytesInSmallParts) {
    const std::string part = Bytes(65536);
    Script script = HeadersOfAnswer();
    for (int i = 0; i < 320; ++i) AddPart(script, part);
    AddPart(script, "");
    const std::size_t before = pavane_test::AllocatedBytes();
    EXPECT_EQ(Run(script), kStatusSuccess);
    EXPECT_EQ(response.size(), 20u << 20);
    EXPECT_LT(pavane_test::AllocatedBytes() - before, std::size_t{160} << 20) << "the script, twice, too";
}

TEST_F(Transaction, AnAnswerAboveThirtyTwoMebibytesIsTooLong) {
    Script script = HeadersOfAnswer();
    script.push_back(Notice(HttpNotice::kDataAvailable, kLongestAnswer + 1));
    EXPECT_EQ(Run(script), 53410);
    script.back().number = 0xFFFFFFFF;
    EXPECT_EQ(Run(script), 53410);
    script.pop_back();
    AddPart(script, "one");
    script.push_back(Notice(HttpNotice::kDataAvailable, kLongestAnswer - 2));
    EXPECT_EQ(Run(script), 53410);
    EXPECT_EQ(response, "");
    EXPECT_THAT(Calls("ReadData"), ElementsAre("3"));
}

TEST_F(Transaction, AnAnswerOfThirtyTwoMebibytesIsNotTooLong) {
    Script script = HeadersOfAnswer();
    script.push_back(Notice(HttpNotice::kDataAvailable, kLongestAnswer));
    script.push_back(Read("the rest is missing"));
    AddPart(script, "");
    EXPECT_EQ(Run(script), kStatusSuccess);
    EXPECT_EQ(response, "the rest is missing");
}

TEST_F(Transaction, ARequestThatHasFinishedHearsNothingMore) {
    Script script = Answer({"answer"});
    script.push_back(Late(Notice(HttpNotice::kError, 12017)));
    EXPECT_EQ(Run(script), kStatusSuccess);
    AwaitClosedRequests();
    EXPECT_EQ(response, "answer");
    EXPECT_THAT(log.Bodies(), IsEmpty());
}

TEST_F(Transaction, ACanceledRequestHearsNothingMore) {
    EXPECT_EQ(Run({Notice(HttpNotice::kSent), Cancel(), Late(Notice(HttpNotice::kError, 12017)),
                   Late(Notice(HttpNotice::kSecureFailure, 1)), Late(Notice(HttpNotice::kDataAvailable, 9))}),
              kStatusCallCanceled);
    AwaitClosedRequests();
    EXPECT_LE(log.Bodies().size(), 1u) << "the notification of the cancel itself may come in time";
    EXPECT_THAT(Calls("ReadData"), IsEmpty());
}

// The system may give the number of a closed handle to the next request at once.
TEST_F(Transaction, ACancelDoesNotCloseTheRequestInTheMiddleOfAStep) {
    std::atomic<bool> hasWaited = false;
    GetNetTwin().afterWait = [&] { hasWaited = true; };
    GetNetTwin().onReceive = [&] {
        CancelTransaction();
        while (!hasWaited) std::this_thread::yield();
        // The waiter has nothing else to do now than to close the request.
        const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(50);
        while (Calls("CloseHttp").empty() && std::chrono::steady_clock::now() < end)
            std::this_thread::yield();
        EXPECT_THAT(Calls("CloseHttp"), IsEmpty());
    };
    EXPECT_EQ(Run({Notice(HttpNotice::kSent)}), kStatusCallCanceled);
    EXPECT_EQ(Calls("CloseHttp").size(), 3u);
    EXPECT_EQ(Calls("ReceiveResponse").size(), 1u);
}

TEST_F(Transaction, AReadInFlightMayEndAfterTheCallHasReturned) {
    Script script = HeadersOfAnswer();
    script.push_back(Notice(HttpNotice::kDataAvailable, 5000));
    script.push_back(Cancel());
    script.push_back(Late(After([this] { door.Pass(); }, Read(Bytes(5000)))));
    EXPECT_EQ(Run(script), kStatusCallCanceled);
    EXPECT_EQ(response, "");
    door.isOpen = true;
    AwaitClosedRequests();
}

TEST_F(Transaction, TheBodyLastsUntilTheRequestHasClosed) {
    const char* sent = nullptr;
    {
        const std::string body = Bytes(3000);
        request.body = body.c_str();
        GetNetTwin().onSend = [&](std::string_view bytes) { sent = bytes.data(); };
        EXPECT_EQ(Run({Cancel(), Late(After(
                                     [&] {
                                         door.Pass();
                                         EXPECT_EQ(std::string_view(sent, 3000), Bytes(3000));
                                     },
                                     Notice(HttpNotice::kSent)))}),
                  kStatusCallCanceled);
        EXPECT_NE(sent, body.c_str());
    }
    door.isOpen = true;
    AwaitClosedRequests();
}

TEST_F(Transaction, OneSignalEndsOneOfTwoCalls) {
    GetNetTwin().script = {After([this] { door.Pass(); }, Notice(HttpNotice::kError, 12029))};
    std::atomic<int> ended = 0;
    Status statuses[2] = {};
    const auto run = [&](Status& status) {
        std::string text;
        status = RunTransaction(request, CallLimit(60), text);
        ++ended;
    };
    std::thread first([&] { run(statuses[0]); });
    std::thread second([&] { run(statuses[1]); });
    while (Calls("WaitForEither").size() < 2) std::this_thread::yield();
    CancelTransaction();
    while (ended < 1) std::this_thread::yield();
    door.isOpen = true;
    first.join();
    second.join();
    EXPECT_THAT(statuses, testing::UnorderedElementsAre(kStatusCallCanceled, kStatusHttpError));
}

TEST(TransportError, EachNumberHasItsStatus) {
    const struct {
        std::uint32_t error;
        Status status;
    } kCases[] = {{0, 0},         {1, 53409},     {5, 53409},     {8, 53410},         {12000, 53409},
                  {12001, 53411}, {12002, 53411}, {12005, 53425}, {12006, 53411},     {12007, 53426},
                  {12017, 53411}, {12029, 53411}, {12152, 53411}, {12174, 53411},     {12175, 53427},
                  {12176, 53411}, {12185, 53411}, {12186, 53409}, {0xFFFFFFFF, 53409}};
    for (const auto& each : kCases) EXPECT_EQ(MapTransportError(each.error), each.status) << each.error;
}

} // namespace
} // namespace brixen::pvn
