#include "canvas/CanvasModel.h"

#include <doctest/doctest.h>

#include <QStringList>

using vostel::viewer::CanvasModel;

TEST_CASE("what happens on a canvas comes as signals, in the order in which it happens")
{
    CanvasModel model;
    QStringList heard;
    QObject::connect(&model, &CanvasModel::imageChanged, [&] { heard << QStringLiteral("image"); });
    QObject::connect(&model, &CanvasModel::objectAdded, [&] { heard << QStringLiteral("added"); });
    QObject::connect(&model, &CanvasModel::objectRemoved, [&] { heard << QStringLiteral("removed"); });
    const std::vector<float> pixels(12, 1.0F);
    model.Open().image_show(VOSTEL_F32, pixels.data(), 4, 3);
    vostel::Object added = model.Open().add_rectangle(0, 0, 2, 2);
    added.set_name("first");
    model.Open().object_remove(added);
    CHECK(heard == QStringList{QStringLiteral("image"), QStringLiteral("added"), QStringLiteral("removed")});
}

TEST_CASE("a change that fails is reported with its reason, and one that works is not")
{
    CanvasModel model;
    QStringList reasons;
    QObject::connect(&model, &CanvasModel::failed, [&](const QString& reason) { reasons << reason; });
    CHECK_FALSE(model.Try([](vostel::Canvas& canvas) { canvas.image_open("/no/such/picture.png"); }));
    REQUIRE(reasons.size() == 1);
    CHECK(reasons.front().contains(QStringLiteral("picture.png")));
    CHECK(model.Try([](vostel::Canvas& canvas) { canvas.add_length({0, 0}, {3, 4}); }));
    CHECK(reasons.size() == 1);
}

TEST_CASE("one selected object is given, several are not")
{
    CanvasModel          model;
    vostel::Canvas&      canvas = model.Open();
    const vostel::Object first = canvas.add_rectangle(0, 0, 2, 2);
    const vostel::Object second = canvas.add_rectangle(3, 3, 5, 5);
    canvas.select({second});
    CHECK(model.SelectedObject() == second);
    canvas.select({first, second});
    CHECK_FALSE(model.SelectedObject().has_value());
}
