#include "options.h"

#include <stdio.h>
#include <wchar.h>

static const char kUsage[] =
    "usage: pavane-host [--workflow N] [--language xx_YY] [--screenshot-dir DIR]\n"
    "                   [--auto-walk] [--press ENTRY,...] [--print-menu]\n"
    "  --workflow N          run workflow N, print its status and end; exit code 0 for status 0, else 1\n"
    "  --language xx_YY      the language of the dialogs, such as he_IL\n"
    "  --screenshot-dir DIR  with --workflow: save each pane and alert as DIR\\pane-1.png, pane-2.png, ...\n"
    "  --auto-walk           with --workflow: press the default button of each pane until the run ends\n"
    "  --press ENTRY,...     as --auto-walk, but press these buttons first, one a pane: an entry is the id "
    "of a\n"
    "                        button, or ID=TEXT for what a field is to hold before the next press\n"
    "  --print-menu          print the items of the menu and end\n";

static bool Refuse(const char* why, const wchar_t* what) {
    fprintf(stderr, "pavane-host: %s: %ls\n%s", why, what, kUsage);
    return false;
}

static bool ReadWorkflow(const wchar_t* text, uint16_t* workflow) {
    wchar_t* end;
    const unsigned long number = wcstoul(text, &end, 10);
    *workflow = (uint16_t)number;
    return end != text && *end == 0 && number != 0 && number <= UINT16_MAX;
}

/* The system writes locales with a hyphen: xx-YY. */
static bool ReadLanguage(const wchar_t* text, LANGID* language) {
    wchar_t name[LOCALE_NAME_MAX_LENGTH];
    if (wcslen(text) >= LOCALE_NAME_MAX_LENGTH) {
        return false;
    }
    wcscpy(name, text);
    for (wchar_t* unit = name; *unit; ++unit) {
        if (*unit == L'_') {
            *unit = L'-';
        }
    }
    const LCID locale = LocaleNameToLCID(name, 0);
    *language = LANGIDFROMLCID(locale);
    return *name != 0 && locale != 0 && locale != LOCALE_CUSTOM_UNSPECIFIED;
}

static bool ReadOption(const wchar_t* name, const wchar_t* value, struct Options* options) {
    if (wcscmp(name, L"--workflow") == 0) {
        return ReadWorkflow(value, &options->workflow) || Refuse("not the number of a workflow", value);
    }
    if (wcscmp(name, L"--language") == 0) {
        return ReadLanguage(value, &options->language) || Refuse("unknown locale", value);
    }
    if (wcscmp(name, L"--screenshot-dir") == 0) {
        options->screenshotFolder = value;
        return true;
    }
    if (wcscmp(name, L"--press") == 0) {
        options->autoWalk = true;
        options->presses = value;
        return true;
    }
    return Refuse("unknown option", name);
}

bool ReadOptions(int count, wchar_t** arguments, struct Options* options) {
    *options = (struct Options){0};
    for (int i = 1; i < count; ++i) {
        if (wcscmp(arguments[i], L"--auto-walk") == 0) {
            options->autoWalk = true;
            continue;
        }
        if (wcscmp(arguments[i], L"--print-menu") == 0) {
            options->printMenu = true;
            continue;
        }
        if (i + 1 == count) {
            return Refuse("not understood", arguments[i]);
        }
        if (!ReadOption(arguments[i], arguments[i + 1], options)) {
            return false;
        }
        ++i;
    }
    return true;
}
