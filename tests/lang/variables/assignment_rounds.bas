10 A%=2.5:B%=-2.5:PRINT A%;B%
