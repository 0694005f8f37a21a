/* A program that does nothing. */
int main(void) {
    return 0;
}
