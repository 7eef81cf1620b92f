#include "status_words.h"

#include "log_lines.h"
#include "pavane.h"

#include <stddef.h>

/* The words of pavane.h. */
static const struct {
    uint16_t status;
    const char* words;
} kWords[] = {
    {PAVANE_SUCCESS, "Done."},
    {PAVANE_NOT_INITIALIZED, "The library is not initialized."},
    {PAVANE_NULL_ARGUMENT, "A required pointer was null."},
    {PAVANE_BAD_ARGUMENT, "An argument is outside its set, or a workflow is running."},
    {PAVANE_NO_MEMORY, "There is not enough memory."},
    {PAVANE_EXCEPTION, "The workflow failed by an exception."},
    {PAVANE_NO_THREAD, "The system refused a thread."},
    {PAVANE_UNMAPPED_OUTCOME, "The workflow reached an outcome that has no status."},
    {PAVANE_SERVICE_DENIED, "The service denied the request."},
    {PAVANE_SERVICE_UNAVAILABLE, "The service is not available now."},
    {PAVANE_USER_QUIT, "The user chose to quit the application."},
    {PAVANE_USER_CANCEL, "The user canceled the workflow."},
    {PAVANE_USER_OUTCOME3, "The user decided otherwise: the workflow's third outcome."},
    {PAVANE_USER_OUTCOME4, "The user decided otherwise: the workflow's fourth outcome."},
    {PAVANE_CALL_CANCELED, "The call to the service was canceled."},
    {PAVANE_CALL_TIMED_OUT, "The service did not answer in time."},
    {PAVANE_CALL_BAD_ANSWER, "The service's answer could not be read."},
    {PAVANE_CALL_SYSTEM_ERROR, "The system refused the call to the service."},
    {PAVANE_CALL_NO_MEMORY, "There is not enough memory for the call to the service."},
    {PAVANE_CALL_HTTP_ERROR, "The call to the service failed."},
    {PAVANE_CALL_INVALID_URL, "The service's address is not valid."},
    {PAVANE_CALL_NAME_UNRESOLVED, "The service's name is unknown."},
    {PAVANE_CALL_SECURE_FAILURE, "The service's certificate is not trusted."},
};

/* What the log knows about an exception, or NULL. The words are those of the library. */
static const char* WordsFromLog(const struct LogLines* lines) {
    if (LogMentions(lines, "View cannot be read")) {
        return "A view of the workflow cannot be read.";
    }
    /* A view or a dictionary. A missing bitmap only leaves its place empty. */
    if (LogMentions(lines, "Missing Resource(Type: Exvw")) {
        return "A file of the workflow is missing. Is PVResources beside the library?";
    }
    if (LogMentions(lines, "Missing Resource(Type: Zdct")) {
        return "A file of the workflow is missing. Is PVResources beside the library?";
    }
    return NULL;
}

static const char* WordsOf(uint16_t status) {
    for (size_t i = 0; i < sizeof kWords / sizeof kWords[0]; ++i) {
        if (kWords[i].status == status) {
            return kWords[i].words;
        }
    }
    return NULL;
}

const char* StatusWords(uint16_t status, const struct LogLines* lines) {
    const char* words = status == PAVANE_EXCEPTION ? WordsFromLog(lines) : NULL;
    if (!words) {
        words = WordsOf(status);
    }
    if (!words && PAVANE_IS_SERVICE_REPLY(status)) {
        words = WordsOf(PAVANE_SERVICE_UNAVAILABLE);
    }
    return words ? words : "A status of the workflow's own.";
}
