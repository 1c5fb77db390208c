/* A host's own C functions, whose names are also names of the desktop's drawing calls. */

int Rectangle(int width, int height)
{
    return width * height;
}

int LineTo(const char* phone)
{
    return phone != 0;
}

int FillRect(int colour)
{
    return colour;
}

int SelectObject(int object)
{
    return object;
}

int Ellipse(double a, double b)
{
    return a < b;
}
