#include "korrin/coding/json_value.h"

#include "korrin/coding/json_codec.h"

namespace korrin::json {

template struct Codec<bool>;
template struct Codec<std::int64_t>;
template struct Codec<double>;
template struct Codec<Text>;
template struct Codec<UUID>;
template struct Codec<Instant>;

template struct Codec<List<std::int64_t>>;
template struct Codec<List<double>>;
template struct Codec<List<Text>>;
template struct Codec<List<UUID>>;

}  // namespace korrin::json
