#pragma once
// Plain value records that cross every interface.

struct Point2fStruct {
    float x, y;
};

struct Point3fStruct {
    float x, y, z;
};

struct Point3dStruct {
    double x, y, z;
};

struct TexCoord2fStruct {
    float s, t;
};

struct RGBColorStruct {
    float r, g, b;
};

struct RGBAColorStruct {
    float r, g, b, a;
};

struct MatrixStruct {
    float m[4][4];
};
