# Composes in a field and clicks the next one without a pause, with each input method: ./dev compose [RUNS].

compose() {
    buildPreset dev input_method_tests
    ORV_COMPOSE_RUNS="${1:-200}" build/dev/tests/input_method_tests --gtest_filter='*TheNextField*'
}
