// One user's share in the image decoder of the process. The first share starts the decoder, the end of the
// last one stops it. Any thread may hold a share.
#pragma once

namespace brixen::pvn::pvn_workflow {

class DecoderShare {
public:
    DecoderShare() = default;
    DecoderShare(const DecoderShare&) = delete;
    DecoderShare& operator=(const DecoderShare&) = delete;
    ~DecoderShare();

    // True once the decoder runs for this share; a refusal is tried again by the next call.
    bool Start();

private:
    bool isHeld = false;
};

} // namespace brixen::pvn::pvn_workflow
