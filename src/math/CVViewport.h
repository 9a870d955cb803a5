#pragma once
#include "../platform/CVExport.h"
// Integer viewport rectangle with its aspect ratio.
// Default: (0, 0, 1, 1) with aspect 1.

class CVSCENE_API CVViewport {
public:
    CVViewport() : m_nLeft(0), m_nBottom(0), m_nWidth(1), m_nHeight(1), m_fAspectRatio(1.0f) {}
    CVViewport(int left, int bottom, int width, int height) { Set(left, bottom, width, height); }
    CVViewport(const CVViewport&) = default;
    CVViewport& operator=(const CVViewport&) = default;

    // Stores the rectangle; aspect ratio = width / height, or 1 when height is 0.
    void Set(int left, int bottom, int width, int height);
    void Get(int& left, int& bottom, int& width, int& height) const;
    int GetLeft() const { return m_nLeft; }
    int GetBottom() const { return m_nBottom; }
    int GetWidth() const { return m_nWidth; }
    int GetHeight() const { return m_nHeight; }
    float GetAspectRatio() const { return m_fAspectRatio; }

    // 1 when left <= x <= left + width and bottom <= y <= bottom + height (both
    // edges inclusive), else 0.
    int PointInViewport(int x, int y) const;

private:
    int m_nLeft;
    int m_nBottom;
    int m_nWidth;
    int m_nHeight;
    float m_fAspectRatio;
};
