# Intel Embree 3 from Debian's libembree-dev: ray casts and closest-point queries on dense meshes.
find_package(embree 3 REQUIRED)
