// The first source of this library.
