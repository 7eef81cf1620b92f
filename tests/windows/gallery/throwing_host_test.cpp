// A host that throws while a real control is made.
#include "windows/gallery/gallery_fixture.h"

#include "toolkit/kept_exception.h"
#include "toolkit/toolkit_state.h"

#include <stdexcept>
#include <string>

namespace brixen::zeve {
namespace {

class ThrowingHostTest : public GalleryTest {
protected:
    // Makes the view with a host that throws at the control with that id; returns the text of the exception.
    std::string ErrorOf(const std::string& view, UINT id) {
        host.throwAtControl = id;
        New(view);
        try {
            (void)ZeveMakeDialog(dialog, &host);
            return "nothing";
        } catch (const std::logic_error& error) {
            return error.what();
        }
    }
};

TEST_F(ThrowingHostTest, LeadsToAnErrorWithTheClassName) {
    EXPECT_EQ(ErrorOf("dialog() { slider(view_id: 7); }", 7), "msctls_trackbar32");
    EXPECT_FALSE(IsExceptionKept());
}

TEST_F(ThrowingHostTest, LeadsToASpecialErrorForTheSubCheck) {
    const UINT subCheck = gToolkit.lastViewId + 2; // the dialog has the id before it
    EXPECT_EQ(ErrorOf("dialog(view_id: 6) { edit_text(view_id: 7, check_box_aware: true); }", subCheck),
              "sub checkbox creation error!");
    EXPECT_FALSE(IsExceptionKept());
}

} // namespace
} // namespace brixen::zeve
