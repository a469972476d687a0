# oneTBB from Debian's libtbb-dev: the host's whole-mesh loops run on the same thread pool that Embree
# builds its hierarchies on, so the two never oversubscribe the cores.
find_package(TBB REQUIRED)
