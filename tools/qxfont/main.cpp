#include "qxfont/app.h"

int main(int argc, char** argv) {
  return qxfont::run(argc, argv);
}
