// Builds a small named tree of nodes whose values come from text, as a chart
// description file would give them, and prints what it built.
#include <cstdio>
#include <string>

#include <cvscene/cvscene.h>

namespace {

// A host-defined node: a labelled item with a position, a colour ramp and children.
class DemoItem : public CVChild {
public:
    CVSFString label;
    CVSFVec3f position;
    CVMFColor colors;
    CVSFBool visible;
    CVMFNode<CVChild*> children;
};

DemoItem* MakeItem(const char* name, const char* label, const char* position, const char* colors,
                   const char* visible) {
    auto* item = new DemoItem;
    item->SetName(CString(name));
    item->label.SetValue(label);
    item->position.SetValue(position);
    item->colors.Add(colors);
    item->visible.SetValue(visible);
    return item;
}

void Print(const DemoItem* item, int depth) {
    const Point3fStruct& p = item->position.GetValue();
    std::printf("%*s%s #%d \"%s\" at (%g, %g, %g)%s", depth * 2, "", item->GetName()->ToUTF8().c_str(),
                item->GetID(), item->label.GetValue().ToUTF8().c_str(), p.x, p.y, p.z,
                item->visible.GetValue() ? "" : " hidden");
    for (int i = 0; i < (int)item->colors.GetNum(); ++i) {
        const RGBAColorStruct& c = item->colors[i];
        std::printf(" rgba(%g, %g, %g, %g)", c.r, c.g, c.b, c.a);
    }
    std::printf("\n");
    for (int i = 0; i < (int)item->children.GetNum(); ++i)
        Print(static_cast<const DemoItem*>(item->children[i]), depth + 1);
}

}  // namespace

int main() {
    DemoItem* chart = MakeItem("chart", "Quarterly sales", "0 0 0", "1 1 1 1", "TRUE");
    chart->Ref();
    DemoItem* series = MakeItem("series", "Region North", "0 1 0", "1, 0.2, 0.4, 0.8", "TRUE");
    chart->children.Add(series);
    series->children.Add(MakeItem("q1", "Q1", "1 2.5 0", "1 1 0 0", "TRUE"));
    series->children.Add(MakeItem("q2", "Q2", "2 3.25 0", "0.5 1 0 0", "true"));
    chart->children.Add(MakeItem("legend", "Legend", "5 5 0", "1 0 0 0", "TRUE"));

    std::printf("CVScene demo: a tree built from text values\n");
    Print(chart, 0);
    DemoItem* found = static_cast<DemoItem*>(CVNode::NameToNode(L"q2"));
    std::printf("lookup of \"q2\": %s\n", found ? found->label.GetValue().ToUTF8().c_str() : "(none)");
    std::printf("live nodes: %lld\n", (long long)CVNode::GetNodeCount());
    chart->Unref();
    std::printf("after freeing the root: %lld live nodes\n", (long long)CVNode::GetNodeCount());
    return 0;
}
