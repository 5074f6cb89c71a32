10 ' No page shown is above page 1: a 400-line mode shows page 0 again.
20 CLS 3:PSET(639,399),7:LINE(100,300)-(200,350),6,BF:SCREEN ,,,0:SCREEN 3
