#include "math/CVViewport.h"

void CVViewport::Set(int left, int bottom, int width, int height) {
    m_nLeft = left;
    m_nBottom = bottom;
    m_nWidth = width;
    m_nHeight = height;
    m_fAspectRatio = (height == 0) ? 1.0f : (float)width / (float)height;
}

void CVViewport::Get(int& left, int& bottom, int& width, int& height) const {
    left = m_nLeft;
    bottom = m_nBottom;
    width = m_nWidth;
    height = m_nHeight;
}

int CVViewport::PointInViewport(int x, int y) const {
    return (x >= m_nLeft && x <= m_nLeft + m_nWidth && y >= m_nBottom && y <= m_nBottom + m_nHeight) ? 1 : 0;
}
