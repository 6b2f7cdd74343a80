// All shots. KIND: 0 player's lance; 1..6, 8 enemy shots; 10..14 trail 0..4.
#declare NoLights = 1;
#include "common.inc"

// a stack of flat layers, each smaller and brighter
#macro Layer(P, Z, C) object { Plate(P, Z, Z + 0.1, 0) Glow(C, 1) } #end
#macro Disc(X, Y, Z, R, C) cylinder { <X, Y, Z>, <X, Y, Z + 0.1>, R Glow(C, 1) } #end
#local O = array[1];

#switch (KIND)
#case (0) // lance, 16 x 32, pointing up
  object { SymPlate(array[6]{<0,15.8>,<2,8>,<2.9,0>,<2.2,-9>,<0.8,-15.6>,<0,-15.8>}, 0, 0.1, 0) Glow(srgb <0.05,0.30,0.95>, 1) }
  object { SymPlate(array[5]{<0,14.5>,<1.3,7>,<1.8,0>,<1.2,-8>,<0,-13>}, 1, 1.1, 0) Glow(C_Cyan, 1) }
  object { SymPlate(array[5]{<0,12.5>,<0.75,6>,<1.0,1>,<0.7,-4>,<0,-8>}, 2, 2.1, 0) Glow(C_White, 1) }
#break
#case (1) // pip, 8 x 8, core near the upper left corner
  #local Cx = -0.7; #local Cy = 0.7;
  union {
    Disc(0, 0, 0, 3.3, srgb <0.80,0.30,0.0>)
    Disc(0, 0, 1, 2.7, C_Amber)
    Disc(0, 0, 2, 1.7, srgb <1,1,0.80>)
    translate <Cx, Cy, 0>
  }
#break
#case (2) // seed, 8 x 16, core in the upper half
  union {
    object { SymPlate(array[7]{<0,7.9>,<2.6,7>,<3.95,4.4>,<3.4,0.5>,<2.4,-3.5>,<1,-7.4>,<0,-7.9>}, 0, 0.1, 0) Glow(srgb <0.03,0.20,0.05>, 1) }
    object { SymPlate(array[7]{<0,6.8>,<2,6>,<2.9,4>,<2.4,0.4>,<1.5,-3>,<0.4,-6>,<0,-6.4>}, 1, 1.1, 0) Glow(srgb <0.20,0.85,0.16>, 1) }
    object { SymPlate(array[4]{<0,0.5>,<1,0>,<0.5,-3.6>,<0,-4.4>}, 2, 2.1, 0) Glow(srgb <0.65,1,0.35>, 1) }
    Disc(0, 4, 3, 1.9, srgb <0.96,1,0.86>)
  }
#break
#case (3) // orb with a band, 16 x 16
  Disc(0, 0, 0, 6.9, srgb <0.24,0.0,0.18>)
  Disc(0, 0, 1, 5.9, C_Magenta)
  Disc(0, 0, 2, 4.5, srgb <0.45,0.02,0.36>)
  Disc(0, 0, 3, 3.4, srgb <1.0,0.62,0.92>)
  Disc(0, 0, 4, 2.4, srgb <1,0.97,1>)
#break
#case (4) // ring with four studs, 32 x 32
  difference {
    union { Disc(0, 0, 0, 15.4, srgb <0.22,0.09,0.0>) Disc(0, 0, 1, 14.3, srgb <0.86,0.42,0.04>)
            Disc(0, 0, 2, 13.2, C_Amber) }
    cylinder { <0,0,-1>, <0,0,9>, 7.6 }
  }
  difference { Disc(0, 0, 3, 12.2, srgb <1,0.96,0.72>) cylinder { <0,0,-1>, <0,0,9>, 10.8 } }
  difference { Disc(0, 0, 4, 8.7, srgb <0.22,0.09,0.0>) cylinder { <0,0,-1>, <0,0,9>, 7.5 } }
  Around(union { Disc(11.4, 0, 5, 4.2, srgb <0.22,0.09,0.0>) Disc(11.4, 0, 6, 3.2, C_Amber) Disc(11.4, 0, 7, 2.2, srgb <1,1,0.9>)
         rotate z*45 }, 4)
#break
#case (5) // four pointed star, 16 x 16
  StarGon(4, 7.9, 4.4, 90, O) Layer(O, 0, srgb <0.12,0.06,0.30>)
  StarGon(4, 6.8, 3.4, 90, O) Layer(O, 1, srgb <0.52,0.36,1.0>)
  StarGon(4, 4.6, 2.6, 90, O) Layer(O, 2, srgb <0.80,0.74,1.0>)
  Disc(0, 0, 3, 2.3, srgb <1,1,1>)
#break
#case (6) // seeker: a red cog with a yellow eye, 16 x 16
  StarGon(6, 7.7, 5.7, 90, O) Layer(O, 0, srgb <0.26,0.02,0.02>)
  StarGon(6, 6.4, 4.8, 90, O) Layer(O, 1, C_Red)
  NGon(6, 3.9, 0, O) Layer(O, 2, srgb <0.30,0.0,0.0>)
  Disc(0, 0, 3, 3.0, C_Yellow)
  Disc(0, 0, 4, 1.9, srgb <1,1,0.94>)
#break
#case (8) // falling bolt, 16 x 32: heavy head with the core, long point below
  object { SymPlate(array[7]{<0,15.6>,<3.6,13.4>,<5.6,8.4>,<4,3>,<2.4,-3>,<1.2,-12>,<0,-15.8>}, 0, 0.1, 0) Glow(srgb <0.62,0.06,0.0>, 1) }
  object { SymPlate(array[7]{<0,13.6>,<2.6,12>,<4.2,8.2>,<2.8,3>,<1.5,-3>,<0.7,-10>,<0,-13.5>}, 1, 1.1, 0) Glow(srgb <1,0.42,0.04>, 1) }
  object { SymPlate(array[5]{<0,11.8>,<2.6,8>,<1.4,2>,<0.6,-5>,<0,-9>}, 2, 2.1, 0) Glow(C_Yellow, 1) }
  Disc(0, 8, 3, 2.0, srgb <1,1,0.95>)
#break
#range (10, 14) // trail of the seeker, newest first
  #local K = KIND - 10;
  #local R = 6.8 - 1.05*K;
  #local I = 1.0 - 0.13*K;
  Disc(0, 0, 0, R, srgb <0.50,0.06,0.03>*I)
  Disc(0, 0, 1, R*0.72, srgb <0.92,0.20,0.06>*I)
  Disc(0, 0, 2, R*0.42, srgb <1.0,0.55,0.18>*I)
#break
#end
