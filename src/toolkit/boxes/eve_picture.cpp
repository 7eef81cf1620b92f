#include "toolkit/boxes/eve_picture.h"

#include "toolkit/boxes/control_maker.h"
#include "toolkit/control_styles.h"

namespace brixen::zeve {

CEveBox* CEvePicture::Create(CExpressionScope& attributes, CEveBox* parentBox) {
    CEveBox::Create(attributes, parentBox);
    MakeControl(*this, attributes, {u"static", style::kChild | style::kStaticBitmap, extended::kTopMost});
    return this;
}

} // namespace brixen::zeve
