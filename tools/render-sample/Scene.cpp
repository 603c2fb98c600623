// SPDX-License-Identifier: MIT
#include "tools/render-sample/Scene.h"

#include <algorithm>
#include <array>
#include <numbers>

namespace Nolvex::RenderSample {

namespace {

constexpr double NEAREST = 1e-5;
constexpr double NOWHERE = 1e300; // farther than anything

struct Sphere
{
    Vector3 centre;
    double radius;
    Finish finish;
    Vector3 colour;
};

constexpr std::array<Sphere, 14> SPHERES = {{
    {{-1.55, 1.25, -0.30}, 1.25, Finish::METAL, {1.00, 0.74, 0.33}},
    {{1.85, 1.40, -1.45}, 1.40, Finish::COATED, {0.02, 0.24, 0.27}},
    {{0.75, 0.80, 1.15}, 0.80, Finish::GLASS, {0.97, 0.99, 0.98}},
    {{-0.42, 0.42, 1.95}, 0.42, Finish::MATTE, {0.78, 0.24, 0.13}},
    {{2.35, 0.50, 1.05}, 0.50, Finish::METAL, {0.93, 0.93, 0.95}},
    {{-2.75, 0.36, 1.35}, 0.36, Finish::COATED, {0.55, 0.03, 0.07}},
    {{0.12, 0.62, -1.90}, 0.62, Finish::COATED, {0.75, 0.68, 0.58}},
    {{1.72, 0.22, 2.20}, 0.22, Finish::METAL, {0.95, 0.62, 0.50}},
    {{-1.45, 0.20, 2.35}, 0.20, Finish::GLASS, {0.70, 0.90, 0.97}},
    {{-3.90, 0.70, -1.30}, 0.70, Finish::MATTE, {0.30, 0.34, 0.55}},
    {{4.30, 0.55, -0.60}, 0.55, Finish::COATED, {0.80, 0.40, 0.06}},
    {{-4.60, 1.50, -5.50}, 0.16, Finish::LAMP, {5.0, 2.2, 0.70}},
    {{-0.60, 1.90, -7.50}, 0.16, Finish::LAMP, {5.0, 2.3, 0.80}},
    {{5.20, 1.40, -5.80}, 0.16, Finish::LAMP, {5.0, 2.1, 0.65}},
}};

/// A window with crossed bars that faces the spheres. Light shines through it only to the side of the
/// spheres.
struct Window
{
    Window(const Vector3& centre, double width, double height, const Vector3& colour)
        : radiance(colour),
          normal(normalized(Vector3{0, 0.8, 0} - centre)),
          across(normalized(cross({0, 1, 0}, normal)) * width),
          up(cross(normal, across) * (height / width)),
          corner(centre - (across + up) * 0.5),
          area(width * height)
    {}

    Vector3 radianceAt(double u, double v) const
    {
        const bool isBar = std::abs(u - 0.5) < 0.03 || std::abs(v - 0.5) < 0.03;
        return isBar ? Vector3{} : radiance;
    }

    Vector3 radiance;
    Vector3 normal;
    Vector3 across;
    Vector3 up;
    Vector3 corner;
    double area;
};

const std::array<Window, 3> WINDOWS = {{
    {{-5.2, 5.6, 4.6}, 2.6, 3.2, {24.0, 20.0, 15.0}},
    {{6.5, 4.2, 3.2}, 1.8, 2.4, {5.0, 7.5, 12.0}},
    {{0.8, 9.0, 1.5}, 5.0, 4.0, {1.6, 1.3, 1.1}},
}};

double distanceTo(const Sphere& sphere, const Ray& ray)
{
    const Vector3 toCentre = sphere.centre - ray.origin;
    const double middle = dot(toCentre, ray.direction);
    const double square = middle * middle - dot(toCentre, toCentre) + sphere.radius * sphere.radius;
    if (square < 0.0) {
        return NOWHERE;
    }
    const double half = std::sqrt(square);
    const double distance = middle - half > NEAREST ? middle - half : middle + half;
    return distance > NEAREST ? distance : NOWHERE;
}

Hit hitOf(const Sphere& sphere, const Ray& ray, double distance)
{
    const Vector3 position = ray.origin + ray.direction * distance;
    return {distance, position, (position - sphere.centre) * (1.0 / sphere.radius), sphere.finish,
            sphere.colour};
}

std::optional<Hit> hitOf(const Window& window, const Ray& ray)
{
    const double towards = dot(window.normal, ray.direction);
    const double distance = dot(window.normal, window.corner - ray.origin) / towards;
    const Vector3 position = ray.origin + ray.direction * distance;
    const double u = dot(position - window.corner, window.across) / dot(window.across, window.across);
    const double v = dot(position - window.corner, window.up) / dot(window.up, window.up);
    if (towards >= 0.0 || distance < NEAREST || std::min(u, v) < 0.0 || std::max(u, v) > 1.0) {
        return std::nullopt;
    }
    return Hit{distance, position, window.normal, Finish::LAMP, window.radianceAt(u, v)};
}

/// Tiles of two colours laid askew, with dark joints.
std::optional<Hit> floorHit(const Ray& ray)
{
    const double distance = -ray.origin.y / ray.direction.y;
    if (!(distance > NEAREST && distance < NOWHERE)) {
        return std::nullopt;
    }
    const Vector3 position = ray.origin + ray.direction * distance;
    const double u = 0.62 * position.x + 0.36 * position.z;
    const double v = 0.62 * position.z - 0.36 * position.x;
    const double toJoint = std::min(std::abs(u - std::round(u)), std::abs(v - std::round(v)));
    const bool isLight = std::fmod(std::floor(u) + std::floor(v), 2.0) == 0.0;
    const Vector3 tile = isLight ? Vector3{0.64, 0.53, 0.42} : Vector3{0.045, 0.075, 0.12};
    return Hit{
        distance, position, {0, 1, 0}, Finish::COATED, toJoint < 0.012 ? Vector3{0.05, 0.045, 0.045} : tile};
}

bool isBlocked(const Ray& ray, double distance)
{
    return std::ranges::any_of(SPHERES,
                               [&](const Sphere& sphere) { return distanceTo(sphere, ray) < distance; });
}

} // namespace

std::optional<Hit> nearestHit(const Ray& ray)
{
    std::optional<Hit> nearest = floorHit(ray);
    double limit = nearest ? nearest->distance : NOWHERE;
    for (const Sphere& sphere : SPHERES) {
        if (const double distance = distanceTo(sphere, ray); distance < limit) {
            limit = distance;
            nearest = hitOf(sphere, ray, distance);
        }
    }
    for (const Window& window : WINDOWS) {
        if (const std::optional<Hit> hit = hitOf(window, ray); hit && hit->distance < limit) {
            limit = hit->distance;
            nearest = hit;
        }
    }
    return nearest;
}

Vector3 windowLight(const Vector3& position, const Vector3& normal, double u, double v)
{
    Vector3 light;
    for (const Window& window : WINDOWS) {
        const Vector3 way = window.corner + window.across * u + window.up * v - position;
        const Vector3 direction = normalized(way);
        const double facing =
            std::max(0.0, dot(normal, direction)) * std::max(0.0, -dot(window.normal, direction));
        if (facing > 0.0 && !isBlocked({position, direction}, std::sqrt(dot(way, way)))) {
            const double weight = facing * window.area / (std::numbers::pi * dot(way, way));
            light = light + window.radianceAt(u, v) * weight;
        }
    }
    return light;
}

Vector3 sky(const Vector3& direction)
{
    const double height = std::max(0.0, direction.y);
    const Vector3 low = mix({1.05, 0.56, 0.30}, {0.46, 0.26, 0.36}, std::min(1.0, height / 0.13));
    const Vector3 high = mix({0.09, 0.10, 0.25}, {0.42, 0.27, 0.20}, 0.5 + 0.5 * direction.z);
    return mix(low, high, std::min(1.0, std::sqrt(height / 0.6)));
}

} // namespace Nolvex::RenderSample
