#include "platform/com/connection_point.h"

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <set>
#include <thread>
#include <utility>
#include <vector>

HX_IID(IHeard, "1B0F3A52-7C44-4E0B-9E11-4D1E5A6C7B80")
struct IHeard : IUnknown {};
HX_IID(IOtherHeard, "1B0F3A52-7C44-4E0B-9E11-4D1E5A6C7B81")
struct IOtherHeard : IUnknown {};

namespace {

std::atomic<int> g_listeners{0};

template <class Interface>
class Listener final : public hx::Implements<Listener<Interface>, hx::FreeThreaded, Interface> {
public:
    explicit Listener(std::function<void()> on_gone = [] {}) : m_on_gone(std::move(on_gone)) {
        ++g_listeners;
    }
    ~Listener() override {
        --g_listeners;
        m_on_gone();
    }

private:
    std::function<void()> m_on_gone;
};

// A source as they all are: it holds its point, and lets go of it at its end.
class Source final : public hx::Implements<Source, hx::FreeThreaded, IConnectionPointContainer> {
public:
    explicit Source(std::function<void()> on_gone = [] {}) : m_on_gone(std::move(on_gone)) {}
    ~Source() override {
        m_on_gone();
        point->Disconnect();
    }
    HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints** points) override {
        return hx::EnumerateConnectionPoint(*point, points);
    }
    HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID iid, IConnectionPoint** found) override {
        return point.query_to(iid, reinterpret_cast<void**>(found));
    }

    const hx::ComPtr<hx::ConnectionPoint> point = hx::Make<hx::ConnectionPoint>(*this, IID_IHeard);

private:
    std::function<void()> m_on_gone;
};

DWORD Advise(hx::ConnectionPoint& point, IUnknown* sink) {
    DWORD cookie = 0;
    EXPECT_EQ(point.Advise(sink, &cookie), S_OK);
    EXPECT_NE(cookie, 0u);
    return cookie;
}

TEST(ConnectionPoint, TellsTheAdvisedInTheirOrder) {
    const auto source = hx::Make<Source>();
    hx::ConnectionPoint& point = *source->point;
    const hx::ComPtr<IUnknown> a = hx::Make<Listener<IHeard>>();
    const hx::ComPtr<IUnknown> b = hx::Make<Listener<IHeard>>();
    const DWORD first = Advise(point, a.get());
    const DWORD second = Advise(point, b.get());
    const DWORD again = Advise(point, a.get());
    EXPECT_EQ(std::set({first, second, again}).size(), 3u);
    EXPECT_EQ(point.Sinks(), (std::vector{a, b, a}));
    EXPECT_EQ(point.Unadvise(first), S_OK);
    EXPECT_EQ(point.Sinks(), (std::vector{b, a}));
    for (const DWORD unknown : {first, DWORD{0}, again + 1}) {
        EXPECT_EQ(point.Unadvise(unknown), CONNECT_E_NOCONNECTION);
    }
    EXPECT_GT(Advise(point, a.get()), again) << "a cookie came again";
    IID iid{};
    EXPECT_EQ(point.GetConnectionInterface(&iid), S_OK);
    EXPECT_EQ(iid, IID_IHeard);
}

TEST(ConnectionPoint, RefusesWhoCannotListen) {
    const auto source = hx::Make<Source>();
    const auto deaf = hx::Make<Listener<IOtherHeard>>();
    DWORD cookie = 7;
    EXPECT_EQ(source->point->Advise(deaf.get(), &cookie), CONNECT_E_CANNOTCONNECT);
    EXPECT_EQ(std::exchange(cookie, 7), 0u);
    EXPECT_EQ(source->point->Advise(nullptr, &cookie), E_POINTER);
    EXPECT_EQ(cookie, 0u);
    EXPECT_EQ(source->point->Advise(deaf.get(), nullptr), E_POINTER);
    EXPECT_TRUE(source->point->Sinks().empty());
}

TEST(ConnectionPoint, OutlivesItsSource) {
    hx::ComPtr<IConnectionPointContainer> found;
    hx::ComPtr<hx::ConnectionPoint> point;
    auto source = hx::Make<Source>([&] {
        // Nobody gets a source that is on its way out.
        EXPECT_EQ(point->GetConnectionPointContainer(found.put()), E_UNEXPECTED);
        EXPECT_EQ(point->GetConnectionPointContainer(found.put()), E_UNEXPECTED);
    });
    point = source->point;
    EXPECT_EQ(point->GetConnectionPointContainer(found.put()), S_OK);
    EXPECT_EQ(found.get(), source.get());
    found.reset();
    const DWORD cookie = Advise(*point, hx::Make<Listener<IHeard>>().get());
    source.reset();
    EXPECT_FALSE(found);
    EXPECT_EQ(g_listeners, 0);
    EXPECT_EQ(point->Unadvise(cookie), CONNECT_E_NOCONNECTION);
    DWORD refused = 7;
    EXPECT_EQ(point->Advise(hx::Make<Listener<IHeard>>().get(), &refused), E_UNEXPECTED);
    EXPECT_EQ(refused, 0u);
    EXPECT_EQ(g_listeners, 0);
}

TEST(ConnectionPoint, IsAskedForASourceThatGoes) {
    for (int i = 0; i < 200; ++i) {
        int gone = 0;
        auto source = hx::Make<Source>([&] { ++gone; });
        std::thread other([point = source->point] {
            for (HRESULT result = S_OK; SUCCEEDED(result);) {
                hx::ComPtr<IConnectionPointContainer> found;
                result = point->GetConnectionPointContainer(found.put());
            }
        });
        source.reset();
        other.join();
        ASSERT_EQ(gone, 1);
    }
}

TEST(ConnectionPoint, AListenerMayCallInAsItGoes) {
    const auto source = hx::Make<Source>();
    hx::ConnectionPoint& point = *source->point;
    int gone = 0;
    const auto call_in = [&] {
        ++gone;
        EXPECT_EQ(point.Unadvise(0), CONNECT_E_NOCONNECTION);
    };
    EXPECT_EQ(point.Unadvise(Advise(point, hx::Make<Listener<IHeard>>(call_in).get())), S_OK);
    EXPECT_EQ(gone, 1);
    Advise(point, hx::Make<Listener<IHeard>>(call_in).get());
    point.Disconnect();
    EXPECT_EQ(gone, 2);
    hx::ComPtr<IUnknown> refused = hx::Make<Listener<IHeard>>(call_in);
    DWORD cookie = 0;
    EXPECT_EQ(point.Advise(refused.get(), &cookie), E_UNEXPECTED);
    refused.reset();
    EXPECT_EQ(gone, 3);
}

TEST(ConnectionPoint, ConnectionsAreWalked) {
    const auto source = hx::Make<Source>();
    hx::ConnectionPoint& point = *source->point;
    std::vector<DWORD> cookies;
    cookies.reserve(3);
    for (int i = 0; i < 3; ++i) cookies.push_back(Advise(point, hx::Make<Listener<IHeard>>().get()));
    hx::ComPtr<IEnumConnections> all;
    ASSERT_EQ(point.EnumConnections(all.put()), S_OK);
    point.Disconnect();  // what is walked is what there was
    EXPECT_EQ(g_listeners, 3);

    CONNECTDATA given[4] = {};
    ULONG fetched = 7;
    EXPECT_EQ(all->Next(2, given, nullptr), E_POINTER);
    EXPECT_EQ(all->Next(1, nullptr, &fetched), E_POINTER);
    EXPECT_EQ(fetched, 0u);
    EXPECT_EQ(all->Next(1, given, nullptr), S_OK);
    hx::ComPtr<IEnumConnections> rest;
    EXPECT_EQ(all->Clone(rest.put()), S_OK);
    EXPECT_EQ(all->Skip(2), S_OK);
    EXPECT_EQ(all->Skip(1), S_FALSE);
    EXPECT_EQ(rest->Next(3, given + 1, &fetched), S_FALSE);
    EXPECT_EQ(fetched, 2u);
    for (size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(given[i].dwCookie, cookies[i]);
        hx::ComPtr<IUnknown>().attach(given[i].pUnk);
    }
    EXPECT_EQ(all->Next(1, given, nullptr), S_FALSE);
    EXPECT_EQ(given[0].pUnk, nullptr);
    EXPECT_EQ(all->Reset(), S_OK);
    EXPECT_EQ(all->Skip(3), S_OK);
}

TEST(ConnectionPoint, IsTheOneOfItsSource) {
    const auto source = hx::Make<Source>();
    hx::ComPtr<IEnumConnectionPoints> points;
    ASSERT_EQ(source->EnumConnectionPoints(points.put()), S_OK);
    hx::ComPtr<IConnectionPoint> found;
    EXPECT_EQ(points->Next(1, found.put(), nullptr), S_OK);
    EXPECT_EQ(found.get(), source->point.get());
    EXPECT_EQ(points->Next(1, found.put(), nullptr), S_FALSE);
    EXPECT_FALSE(found);
}

TEST(ConnectionPoint, ServesManyThreads) {
    const auto source = hx::Make<Source>();
    hx::ConnectionPoint& point = *source->point;
    hx::ComPtr<IEnumConnectionPoints> shared;
    ASSERT_EQ(source->EnumConnectionPoints(shared.put()), S_OK);
    std::vector<std::thread> threads;
    threads.reserve(8);
    for (int t = 0; t < 8; ++t) {
        threads.emplace_back([&] {
            const auto mine = hx::Make<Listener<IHeard>>([&] { point.Unadvise(0); });
            for (int i = 0; i < 200; ++i) {
                const DWORD cookie = Advise(point, mine.get());
                hx::ComPtr<IEnumConnections> all;
                EXPECT_EQ(point.EnumConnections(all.put()), S_OK);
                CONNECTDATA one{};
                EXPECT_EQ(all->Next(1, &one, nullptr), S_OK);
                hx::ComPtr<IUnknown>().attach(one.pUnk);
                EXPECT_GE(point.Sinks().size(), 1u);
                shared->Reset();
                shared->Skip(1);
                EXPECT_EQ(point.Unadvise(cookie), S_OK);
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_TRUE(point.Sinks().empty());
    EXPECT_EQ(g_listeners, 0);
}

}  // namespace
