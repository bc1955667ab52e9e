// The contract between the unit operation and its script editor, which is a library of its own: the table of callbacks
// that the editor is handed, and the one function that it exports. Plain C, so that an editor may be written in anything;
// this header compiles as C too.
//
// For the whole table:
// - Every callback takes the table's own address first. The table lives as long as the editor is open.
// - Texts are UTF-8 and end in a null character; a null character within a text arrives as U+FFFD. No text or list that is
//   given is ever null.
// - Texts, lists and bytes that a callback gives stay valid until the next callback on the same table. They may be
//   arguments of that next callback.
// - Outputs may be null when they are not wanted. Lists of one callback are parallel and have as many items as it returns.
// - Items are counted from 0. A number without an item gives an empty answer.
// - Nothing is thrown, and no callback needs another one first. They come from one thread at a time.
// - Ports and parameters are those of the last Configure that succeeded while the editor was open, or those that the unit
//   had when it opened. The simulator sees them once the editor has closed.
// - Entries keep their order for ever; new ones come at the end.
#pragma once

#include <stdbool.h>
#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef struct EditingUnit EditingUnit;

struct EditingUnit {
    /// 1. The path of the file that holds the script. The editor writes the file, then calls scriptChanged.
    const char* (*scriptFile)(EditingUnit* unit);

    /// 2. Loads the script and runs Configure, where either has changed. `error` is empty when all went well.
    void (*configure)(EditingUnit* unit, const char** output, const char** error);

    /// 3. Validates and calculates, Configure included where it is needed. `output` is what a user reads after a run;
    /// `error` is empty when the run succeeded.
    void (*calculate)(EditingUnit* unit, const char** output, const char** error);

    /// 4. The script file was written: it is to be loaded and configured again.
    void (*scriptChanged)(EditingUnit* unit);

    /// 5. The ports, and how many: kinds are "material", "energy" and "information", directions "inlet" and "outlet".
    int (*ports)(EditingUnit* unit, const char* const** names, const char* const** kinds,
                 const char* const** directions);

    /// 6. The parameters, and how many: directions are "input" and "output".
    int (*parameters)(EditingUnit* unit, const char* const** names, const char* const** directions);

    /// 7. What a user read after the last run.
    const char* (*lastOutput)(EditingUnit* unit);

    /// 8. Replaces it; it is saved with the simulation. Null counts as empty.
    void (*setLastOutput)(EditingUnit* unit, const char* text);

    /// 9. Whether that parameter is an input.
    bool (*isInputParameter)(EditingUnit* unit, int parameter);

    /// 10. The parameter's value as an expression that setParameter reads back: "0.1", "'red'", "[1.0, nan]".
    const char* (*parameterValue)(EditingUnit* unit, int parameter);

    /// 11. The texts that the parameter may have, and how many; `current` is the number of its present value, or -1. No
    /// texts for a parameter that is not restricted to a list.
    int (*parameterOptions)(EditingUnit* unit, int parameter, const char* const** options, int* current);

    /// 12. The names of the script's reports, and how many.
    int (*reports)(EditingUnit* unit, const char* const** names);

    /// 13. What the last calculation printed into that report.
    const char* (*reportText)(EditingUnit* unit, int report);

    /// 14. The names of the script's images, and how many.
    int (*images)(EditingUnit* unit, const char* const** names);

    /// 15. Draws that image. True: `bytes` and `size` are the PNG file, `error` is empty. False: `error` says why.
    bool (*drawImage)(EditingUnit* unit, int image, const unsigned char** bytes, size_t* size,
                      const char** error);

    /// 16. Sets an input parameter from a one-line expression that the user typed. Gives what is wrong with it, in which
    /// case the value stays; empty when it was set.
    const char* (*setParameter)(EditingUnit* unit, int parameter, const char* expression);
};

/// What the editor library exports as "orvaneEditor": shows the editor and returns when the user has closed it. True: the
/// simulator is told that the unit was modified; false: that it was not.
/// parentWindow: the simulator's window, an HWND on Windows; may be null.
typedef bool OrvaneEditor(void* parentWindow, EditingUnit* unit);

#ifdef __cplusplus
}
#endif
