#include <arv.h>

#include "evaluationmemo.h"

#include "arithmeticguard.h"

#include <QHash>
#include <QPair>

#include <array>
#include <mutex>
#include <vector>

namespace Backend {

namespace {

enum Slot { Value, Min, Max, Inc, AccessMode, SlotCount };

struct Entry {
    gint64 integer = 0;
    double number = 0.0;
    ArvGcAccessMode access = ARV_GC_ACCESS_MODE_UNDEFINED;
    GError* error = nullptr; // owned
    bool overflowed = false;
};

using IntegerGetter = gint64 (*)(ArvGcInteger*, GError**);
using FloatGetter = double (*)(ArvGcFloat*, GError**);
using AccessGetter = ArvGcAccessMode (*)(ArvGcFeatureNode*);

// What a class answered before the memo was put in front of it.
struct Originals {
    GType type = 0;
    std::array<IntegerGetter, 4> integer{};
    std::array<FloatGetter, 4> number{};
    AccessGetter access = nullptr;
};

std::vector<Originals> s_originals;

using Memo = QHash<QPair<const void*, int>, Entry>;
thread_local Memo* t_memo = nullptr;

const Originals* originalsOf(const void* instance)
{
    // A class derived after install inherits the wrappers; its base holds the originals.
    for (GType type = G_TYPE_FROM_INSTANCE(instance); type != 0; type = g_type_parent(type)) {
        for (const Originals& o : s_originals) {
            if (o.type == type) {
                return &o;
            }
        }
    }
    return nullptr;
}

// Answers from the memo, or computes with `compute` and remembers what it gave.
template <class Compute> const Entry& remember(const void* node, int slot, Compute compute)
{
    const auto key = qMakePair(node, slot);
    auto it = t_memo->constFind(key);
    if (it != t_memo->constEnd()) {
        if (it->overflowed) {
            ArithmeticGuard::countOverflow();
        }
        return *it;
    }
    const unsigned overflows = ArithmeticGuard::overflowCount();
    Entry entry;
    compute(entry);
    entry.overflowed = ArithmeticGuard::overflowCount() != overflows;
    return *t_memo->insert(key, entry);
}

void giveError(const Entry& entry, GError** error)
{
    if (entry.error != nullptr) {
        g_propagate_error(error, g_error_copy(entry.error));
    }
}

template <class Node, class T>
T memoized(Node* node, int slot, T (*original)(Node*, GError**), T Entry::*field, GError** error)
{
    if (t_memo == nullptr) {
        return original(node, error);
    }
    const Entry& entry =
        remember(node, slot, [&](Entry& e) { e.*field = original(node, &e.error); });
    giveError(entry, error);
    return entry.*field;
}

template <int S> gint64 integerGetter(ArvGcInteger* node, GError** error)
{
    return memoized(node, S, originalsOf(node)->integer[S], &Entry::integer, error);
}

template <int S> double floatGetter(ArvGcFloat* node, GError** error)
{
    return memoized(node, S, originalsOf(node)->number[S], &Entry::number, error);
}

ArvGcAccessMode accessGetter(ArvGcFeatureNode* node)
{
    const AccessGetter original = originalsOf(node)->access;
    if (t_memo == nullptr) {
        return original(node);
    }
    return remember(node, AccessMode, [&](Entry& e) { e.access = original(node); }).access;
}

template <class Getter> void wrapGetter(Getter& slot, Getter wrapper)
{
    if (slot != nullptr) {
        slot = wrapper;
    }
}

void wrap(GType type)
{
    Originals o;
    o.type = type;
    auto* klass = static_cast<ArvGcFeatureNodeClass*>(g_type_class_ref(type));
    o.access = klass->get_access_mode;
    wrapGetter(klass->get_access_mode, accessGetter);
    if (auto* i = static_cast<ArvGcIntegerInterface*>(
            g_type_interface_peek(klass, ARV_TYPE_GC_INTEGER))) {
        o.integer = {i->get_value, i->get_min, i->get_max, i->get_inc};
        // A getter a class leaves out gets Aravis's default answer: it stays left out.
        wrapGetter(i->get_value, integerGetter<Value>);
        wrapGetter(i->get_min, integerGetter<Min>);
        wrapGetter(i->get_max, integerGetter<Max>);
        wrapGetter(i->get_inc, integerGetter<Inc>);
    }
    if (auto* f =
            static_cast<ArvGcFloatInterface*>(g_type_interface_peek(klass, ARV_TYPE_GC_FLOAT))) {
        o.number = {f->get_value, f->get_min, f->get_max, f->get_inc};
        wrapGetter(f->get_value, floatGetter<Value>);
        wrapGetter(f->get_min, floatGetter<Min>);
        wrapGetter(f->get_max, floatGetter<Max>);
        wrapGetter(f->get_inc, floatGetter<Inc>);
    }
    s_originals.push_back(o);
}

} // namespace

void EvaluationMemo::install()
{
    static std::once_flag once;
    std::call_once(once, [] {
        for (GType type : {ARV_TYPE_GC_INTEGER_NODE, ARV_TYPE_GC_FLOAT_NODE,
                           ARV_TYPE_GC_INT_SWISS_KNIFE_NODE, ARV_TYPE_GC_SWISS_KNIFE_NODE,
                           ARV_TYPE_GC_INT_CONVERTER_NODE, ARV_TYPE_GC_CONVERTER_NODE}) {
            wrap(type);
        }
    });
}

EvaluationMemo::EvaluationMemo() : m_outermost(t_memo == nullptr)
{
    if (m_outermost) {
        t_memo = new Memo;
    }
}

EvaluationMemo::~EvaluationMemo()
{
    if (!m_outermost) {
        return;
    }
    for (Entry& entry : *t_memo) {
        g_clear_error(&entry.error);
    }
    delete t_memo;
    t_memo = nullptr;
}

} // namespace Backend
