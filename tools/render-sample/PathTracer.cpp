// SPDX-License-Identifier: MIT
#include "tools/render-sample/PathTracer.h"

#include "tools/render-sample/Scene.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <numbers>
#include <random>

namespace Nolvex::RenderSample {

namespace {

/// Generates numbers in [0, 1). The first numbers of each path are spread evenly over the paths of the pixel,
/// which leaves far less noise than independent numbers do.
class Sampler
{
public:
    explicit Sampler(std::uint32_t pixel) : m_random(pixel)
    {
        std::ranges::generate(m_shifts, [this] { return random(); });
    }

    void startPath(int index)
    {
        m_path = index;
        m_dimension = 0;
    }

    double next()
    {
        if (m_dimension == STEPS.size()) {
            return random();
        }
        const double value = m_shifts[m_dimension] + m_path * std::sqrt(STEPS[m_dimension]);
        ++m_dimension;
        return value - std::floor(value);
    }

private:
    static constexpr std::array<double, 20> STEPS = {2,  3,  5,  7,  11, 13, 17, 19, 23, 29,
                                                     31, 37, 41, 43, 47, 53, 59, 61, 67, 71};

    /// Unlike the generators, the distributions of the standard library differ from system to system.
    double random() { return static_cast<double>(m_random()) * 0x1.0p-32; }

    std::mt19937 m_random;
    std::array<double, STEPS.size()> m_shifts = {};
    int m_path = 0;
    std::size_t m_dimension = 0;
};

/// The direction in which a path continues, and the share of the light that it brings from there.
struct Bounce
{
    Vector3 direction;
    Vector3 share;
    bool isScattered = false;
};

/// Returns the share of the light that plastic or glass reflects like a mirror.
double mirroredShare(double cosine)
{
    return 0.04 + 0.96 * std::pow(std::max(0.0, 1.0 - cosine), 5.0);
}

Vector3 mirrored(const Vector3& direction, const Vector3& normal)
{
    return direction - normal * (2.0 * dot(direction, normal));
}

Bounce offMatte(const Hit& hit, double share, Sampler& sampler)
{
    const double height = 2.0 * sampler.next() - 1.0;
    const double radius = std::sqrt(1.0 - height * height);
    const double angle = 2.0 * std::numbers::pi * sampler.next();
    const Vector3 onSphere = {radius * std::cos(angle), height, radius * std::sin(angle)};
    return {normalized(hit.normal * 1.0000001 + onSphere), hit.colour * share, true};
}

Bounce offMetal(const Ray& ray, const Hit& hit)
{
    const double white = std::pow(std::max(0.0, 1.0 + dot(ray.direction, hit.normal)), 5.0);
    return {mirrored(ray.direction, hit.normal), mix(hit.colour, {1, 1, 1}, white)};
}

Bounce offCoat(const Ray& ray, const Hit& hit, Sampler& sampler)
{
    const double share = mirroredShare(-dot(ray.direction, hit.normal));
    const double chance = 0.25 + 0.5 * share;
    if (sampler.next() < chance) {
        return {mirrored(ray.direction, hit.normal), Vector3{1, 1, 1} * (share / chance)};
    }
    return offMatte(hit, (1.0 - share) / (1.0 - chance), sampler);
}

Bounce throughGlass(const Ray& ray, const Hit& hit, Sampler& sampler)
{
    const bool isEntering = dot(ray.direction, hit.normal) < 0.0;
    const Vector3 normal = hit.normal * (isEntering ? 1.0 : -1.0);
    const double ratio = isEntering ? 1.0 / 1.5 : 1.5;
    const double cosine = -dot(ray.direction, normal);
    const double square = 1.0 - ratio * ratio * (1.0 - cosine * cosine);
    const double cosineBehind = std::sqrt(std::max(0.0, square));
    // The share depends on the angle on the side of the air.
    if (square <= 0.0 || sampler.next() < mirroredShare(isEntering ? cosine : cosineBehind)) {
        return {mirrored(ray.direction, normal), {1, 1, 1}};
    }
    return {normalized(ray.direction * ratio + normal * (ratio * cosine - cosineBehind)), hit.colour};
}

Bounce bounceOf(const Ray& ray, const Hit& hit, Sampler& sampler)
{
    switch (hit.finish) {
    case Finish::COATED:
        return offCoat(ray, hit, sampler);
    case Finish::METAL:
        return offMetal(ray, hit);
    case Finish::GLASS:
        return throughGlass(ray, hit, sampler);
    default:
        return offMatte(hit, 1.0, sampler);
    }
}

/// Rare paths with much light would remain as single bright pixels.
Vector3 cutOff(const Vector3& light)
{
    return light * std::min(1.0, 6.0 / (1e-9 + std::max({light.x, light.y, light.z})));
}

Vector3 lightOf(Ray ray, Sampler& sampler)
{
    constexpr int MAXIMUM_BOUNCES = 12;
    Vector3 seen;
    Vector3 scattered;
    Vector3* sum = &seen;
    Vector3 share = {1, 1, 1};
    bool wasScattered = false;
    for (int bounces = 0; bounces < MAXIMUM_BOUNCES; ++bounces) {
        const std::optional<Hit> hit = nearestHit(ray);
        const double haze = hit ? 1.0 - std::exp(-std::pow(hit->distance / 34.0, 3.0)) : 1.0;
        *sum = *sum + share * sky(ray.direction) * haze;
        share = share * (1.0 - haze);
        if (!hit || hit->finish == Finish::LAMP) {
            // After scattering windowLight() has counted the windows; the lamps are too small to light
            // anything.
            *sum = *sum + (hit && !wasScattered ? share * hit->colour : Vector3{});
            break;
        }
        const Bounce bounce = bounceOf(ray, *hit, sampler);
        share = share * bounce.share;
        wasScattered = bounce.isScattered;
        if (wasScattered) {
            const double u = sampler.next();
            *sum = *sum + share * windowLight(hit->position, hit->normal, u, sampler.next());
            sum = &scattered;
        }
        ray = {hit->position, bounce.direction};
    }
    return seen + cutOff(scattered);
}

Ray cameraRay(const Frame& frame, double x, double y)
{
    const Vector3 eye = {0.0, 2.15, 8.6};
    const Vector3 forward = normalized(Vector3{0.05, 0.98, 0.0} - eye);
    const Vector3 right = normalized(cross(forward, {0, 1, 0}));
    const Vector3 up = cross(right, forward);
    const double scale = 0.524 / frame.height;
    const Vector3 aside = right * ((x - 0.5 * frame.width) * scale) + up * ((0.5 * frame.height - y) * scale);
    return {eye, normalized(forward + aside)};
}

} // namespace

Vector3 tracedPixel(const Frame& frame, int column, int row)
{
    Sampler sampler(static_cast<std::uint32_t>(row * frame.width + column));
    Vector3 sum;
    for (int path = 0; path < frame.samples; ++path) {
        sampler.startPath(path);
        const double x = column + sampler.next();
        const double y = row + sampler.next();
        sum = sum + lightOf(cameraRay(frame, x, y), sampler);
    }
    return sum * (1.0 / frame.samples);
}

} // namespace Nolvex::RenderSample
