#pragma once
// Driver workarounds of the platform layer, one function per quirk, each
// naming the driver version where it was seen and the symptom it avoids.
// All of them ask the current context and are false without one.
class CVMesaQuirks {
public:
    // Mesa 22.3 (llvmpipe over GLX): glAccum converts colour through sRGB on
    // window framebuffers, even with GL_FRAMEBUFFER_SRGB disabled and on
    // configs that are not sRGB-capable, because Mesa gives window buffers
    // sRGB formats. Averaging red, green and blue frames at 1/3 each returns
    // grey 156 instead of 85. Where this holds, the CPU accumulation buffer
    // is used even though the context has accumulation bits.
    static int NativeAccumIsSRGB();
};
