// What people draw, as numbers: masks, measures and labels beside OpenCV, and many objects beside Qt's
// graphics view. 4096 x 4096.

#include "canvas/exports/CanvasTable.h"
#include "support/PeerBench.h"

#include <vostel.h>

#include <QApplication>
#include <QGraphicsPolygonItem>
#include <QGraphicsScene>
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>
#include <random>
#include <vector>

namespace {

constexpr int Side = 4096;

// A star around a place, on whole px: the peer takes no others.
std::vector<VostelPoint> StarAt(double x, double y, double radius, int nodes, std::mt19937& random)
{
    std::uniform_real_distribution<double> share(0.5, 1.0);
    std::vector<VostelPoint>               points;
    for (int i = 0; i < nodes; ++i) {
        const double angle = 6.283185307179586 * i / nodes;
        const double r = radius * share(random);
        points.push_back({std::floor(x + r * std::cos(angle)), std::floor(y + r * std::sin(angle))});
    }
    return points;
}

std::vector<cv::Point> ToCv(const std::vector<VostelPoint>& points)
{
    std::vector<cv::Point> given;
    for (const VostelPoint& point : points)
        given.emplace_back(static_cast<int>(point.x), static_cast<int>(point.y));
    return given;
}

class Arena {
public:
    explicit Arena(bench::PeerBench& peers) : Peers(peers), Floats(std::size_t{Side} * Side)
    {
        std::uniform_real_distribution<float> values(-300.0f, 4000.0f);
        for (float& v : Floats)
            v = values(Random);
        vostel_canvas_create(640, 480, &Canvas);
        vostel_image_show(Canvas, VOSTEL_F32, Floats.data(), Side, Side, 0, 0);
        const std::vector<VostelPoint> star = StarAt(2048, 2048, 2000, 100, Random);
        vostel_object_add(Canvas, VOSTEL_POLYGON, star.data(), star.size(), &Star);
        CvStar = {ToCv(star)};
    }

    void Mask()
    {
        std::vector<std::uint8_t> mask(Floats.size());
        cv::Mat                   peer(Side, Side, CV_8U);
        bench::Contest            contest;
        contest.Title = "mask of a polygon of 100 nodes";
        contest.AtMost = 1.0;
        contest.Run = [&] { vostel_mask(Canvas, Star, mask.data(), 0); };
        contest.Check = [&] {
            // The peer takes edges in on all sides.
            VostelMeasures measures = {};
            measures.size = sizeof measures;
            vostel_measure(Canvas, Star, 0, &measures);
            return std::count(mask.begin(), mask.end(), 255) == measures.pixels &&
                   std::fabs(static_cast<double>(measures.pixels) - measures.area) < measures.perimeter;
        };
        contest.Peers.push_back({"opencv fillPoly",
                                 [&] {
                                     peer.setTo(0);
                                     cv::fillPoly(peer, CvStar, cv::Scalar(255));
                                 },
                                 {},
                                 {}});
        Peers.Compare(contest);
    }

    void Measure()
    {
        VostelMeasures     measures = {};
        cv::Mat            mask(Side, Side, CV_8U);
        const cv::Mat      image(Side, Side, CV_32F, Floats.data());
        std::vector<float> inside;
        inside.reserve(Floats.size());
        bench::Contest contest;
        contest.Title = "measures of it, floats";
        contest.AtMost = 0.8;
        contest.Run = [&] {
            measures.size = sizeof measures;
            vostel_measure(Canvas, Star, 0, &measures);
        };
        contest.Check = [&] {
            return (measures.valid & VOSTEL_HAS_VALUES) != 0 && std::fabs(measures.mean - 1850.0) < 5.0;
        };
        contest.Peers.push_back({"opencv fillPoly, meanStdDev, minMaxLoc, nth_element",
                                 [&] {
                                     mask.setTo(0);
                                     cv::fillPoly(mask, CvStar, cv::Scalar(255));
                                     cv::Scalar mean, sd;
                                     cv::meanStdDev(image, mean, sd, mask);
                                     double low = 0.0, high = 0.0;
                                     cv::minMaxLoc(image, &low, &high, nullptr, nullptr, mask);
                                     inside.clear();
                                     for (int y = 0; y < Side; ++y) {
                                         const std::uint8_t* const m = mask.ptr<std::uint8_t>(y);
                                         const float* const        v = image.ptr<float>(y);
                                         for (int x = 0; x < Side; ++x) {
                                             if (m[x] != 0)
                                                 inside.push_back(v[x]);
                                         }
                                     }
                                     std::nth_element(inside.begin(),
                                                      inside.begin() +
                                                          static_cast<std::ptrdiff_t>(inside.size() / 2),
                                                      inside.end());
                                 },
                                 {},
                                 {}});
        Peers.Compare(contest);
    }

    void Labels()
    {
        vostel_object_remove(Canvas, Star);
        std::vector<std::vector<cv::Point>> shapes;
        for (int i = 0; i < 1000; ++i) {
            const std::vector<VostelPoint> star =
                StarAt(100 + 125 * (i % 32), 100 + 125 * (i / 32), 90, 20, Random);
            VostelObject object = 0;
            vostel_object_add(Canvas, VOSTEL_POLYGON, star.data(), star.size(), &object);
            shapes.push_back(ToCv(star));
        }
        std::vector<std::int32_t> labels(Floats.size());
        cv::Mat                   peer(Side, Side, CV_32S);
        bench::Contest            contest;
        contest.Title = "labels of 1,000 polygons";
        contest.AtMost = 1.0;
        contest.Run = [&] { vostel_labels(Canvas, labels.data(), 0); };
        contest.Check = [&] { return *std::max_element(labels.begin(), labels.end()) == 1000; };
        contest.Peers.push_back({"opencv fillPoly for each",
                                 [&] {
                                     peer.setTo(0);
                                     for (std::size_t i = 0; i < shapes.size(); ++i)
                                         cv::fillPoly(peer, std::vector<std::vector<cv::Point>>{shapes[i]},
                                                      cv::Scalar(static_cast<double>(i + 1)));
                                 },
                                 {},
                                 {}});
        Peers.Compare(contest);
    }

    void ManyObjects()
    {
        std::vector<std::vector<VostelPoint>> stars;
        for (int i = 0; i < 10000; ++i)
            stars.push_back(StarAt(20 + 40 * (i % 100), 20 + 40 * (i / 100), 18, 12, Random));
        std::vector<VostelPoint> read(64);
        double                   sum = 0.0;
        bench::Contest           contest;
        contest.Title = "add 10,000 polygons, list, read their points";
        contest.AtMost = 1.0;
        contest.Run = [&] {
            std::int32_t canvas = -1;
            vostel_canvas_create(640, 480, &canvas);
            for (const std::vector<VostelPoint>& star : stars) {
                VostelObject object = 0;
                vostel_object_add(canvas, VOSTEL_POLYGON, star.data(), star.size(), &object);
            }
            std::size_t               count = 0;
            std::vector<VostelObject> list(stars.size());
            vostel_object_list(canvas, list.data(), list.size(), &count);
            sum = 0.0;
            for (const VostelObject object : list) {
                vostel_object_points(canvas, object, read.data(), read.size(), &count);
                for (std::size_t i = 0; i < count; ++i)
                    sum += read[i].x;
            }
            vostel_canvas_destroy(canvas);
        };
        contest.Check = [&] {
            double expected = 0.0;
            for (const std::vector<VostelPoint>& star : stars) {
                for (const VostelPoint& point : star)
                    expected += point.x;
            }
            return sum == expected;
        };
        double peerSum = 0.0;
        contest.Peers.push_back({"Qt graphics view",
                                 [&] {
                                     QGraphicsScene scene;
                                     for (const std::vector<VostelPoint>& star : stars) {
                                         QPolygonF polygon;
                                         for (const VostelPoint& point : star)
                                             polygon << QPointF(point.x, point.y);
                                         scene.addPolygon(polygon);
                                     }
                                     peerSum = 0.0;
                                     for (const QGraphicsItem* const item : scene.items()) {
                                         const QPainterPath shape = item->shape();
                                         for (int i = 0; i < shape.elementCount(); ++i)
                                             peerSum += shape.elementAt(i).x;
                                     }
                                 },
                                 {},
                                 {}});
        Peers.Compare(contest);
    }

private:
    bench::PeerBench&                   Peers;
    std::mt19937                        Random{4096};
    std::vector<float>                  Floats;
    std::int32_t                        Canvas = -1;
    VostelObject                        Star = 0;
    std::vector<std::vector<cv::Point>> CvStar;
};

}

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication     application(argc, argv);
    bench::PeerBench peers(argc, argv);
    cv::setNumThreads(1);
    Arena arena(peers);
    arena.Mask();
    arena.Measure();
    arena.Labels();
    arena.ManyObjects();
    return peers.Finish();
}
