# The two programs and nothing else:
#
#   docker build -t qorn .
#   docker run --rm -u "$(id -u):$(id -g)" -v "$PWD:/src" qorn --check .
FROM debian:12-slim AS build
RUN apt-get -q update && apt-get -qy install --no-install-recommends cmake g++ ninja-build
COPY . /qorn
RUN cd /qorn && cmake --preset static && cmake --build --preset static && strip build/static/qorn build/static/qornfmt

FROM scratch
COPY --from=build /qorn/build/static/qorn /qorn/build/static/qornfmt /
WORKDIR /src
ENTRYPOINT ["/qornfmt"]
