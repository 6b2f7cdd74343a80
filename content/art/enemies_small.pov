// The 32 x 32 enemies, nose down. KIND chooses, F of N is the frame.
#include "common.inc"
#include "enemies.inc"

#switch (KIND)

// ------------------------------------------------ scouts: rust and amber
#case (0) // dart: a long arrowhead that rocks
  union {
    object { SymPlate(array[5]{<0,6>,<5,15>,<14.5,12>,<5,-4>,<0,-15.5>}, 0, 4, 2.6) Paint(C_Rust) }
    object { SymPlate(array[4]{<0,10>,<2.4,9>,<2,-4>,<0,-13>}, 3, 6, 1.2) Paint(C_Sand) }
    Both(object { Plate(array[4]{<6.5,13>,<12.5,10.8>,<8.5,5>,<6,6>}, 3, 5, 0.8) Paint(C_RustD) })
    Eye(0, -3.5, 6, 1.9, C_Amber, C_Yellow)
    Jet(0, 8.5, 1, 2.2, -(3.2 + 2.4*P1), C_Amber, C_Yellow)
    rotate y*(30*S1)
  }
#break
#case (1) // wasp: beating wings, striped tail
  union {
    Both(object { Plate(array[5]{<2,6>,<14.8,13>,<15.4,7>,<10,1>,<2,1>}, 0, 2, 1) Paint(C_Sand)
                  rotate z*(14*S1 - 2) rotate y*(18*C1) })
    Both(object { Plate(array[4]{<2,-1>,<12.5,-3>,<13.2,-8>,<2,-5>}, 0, 2, 1) Paint(C_Rust) rotate z*(-12*S1) })
    #for (I, 0, 4)
      sphere { 0, 1 scale <4.4 - I*0.45, 2.6, 3.6> translate <0, 3 + I*2.7, 2> Paint((mod(I,2) ? C_RustD : C_Amber)) }
    #end
    object { Ell(0, -3, 3, 4.6, 4.4, 4) Paint(C_Rust) }
    }
  object { Ell(0, -9.5, 3, 4.2, 4.2, 3.6) Paint(C_RustD) }
  Both(object { Eye(2.3, -10.8, 5.5, 1.5, C_Amber, C_Yellow) })
  Both(object { Plate(array[3]{<1.2,-12>,<3.6,-11>,<2.4,-15.6>}, 2, 4, 0.7) Metal(C_Bone) })
#break
#case (2) // disc: a spinning saucer with three notches
  union {
    difference {
      sphere { 0, 1 scale <15.6, 15.6, 6> }
      Around(object { cylinder { <15.5,0,-9>, <15.5,0,9>, 4.6 } }, 3)
      Paint(C_Rust)
    }
    torus { 9.4, 1.3 rotate x*90 translate z*4.6 Paint(C_RustD) }
    Around(object { Plate(array[4]{<10.6,-2>,<14.2,-1.4>,<14.2,1.4>,<10.6,2>}, 2, 5, 0.6) rotate z*60 Glow(C_Amber, 0.9) }, 3)
    rotate z*(120*T)
  }
  sphere { 0, 1 scale <6.2, 6.2, 3.6> translate z*5 Metal(C_Sand) }
  Eye(0, 0, 8, 2.6, C_Amber, C_Yellow)
#break
#case (3) // sickle: a crescent whose horns close
  union {
    Both(object { Plate(array[8]{<0,13>,<7,14.5>,<13,10.5>,<15.6,3>,<14,-6>,<9.5,-15.5>,<10,-4>,<6,3.5>}, 0, 4, 2.4)
           Paint(C_Rust) rotate z*(-7*P1) })
    Both(object { Plate(array[5]{<9,10>,<12.2,7.5>,<13.8,1>,<12,-5>,<11,2>}, 3, 5, 0.7) Paint(C_Sand) rotate z*(-7*P1) })
    object { SymPlate(array[6]{<0,15>,<4,12>,<5.4,4>,<3.4,-5>,<1.4,-8>,<0,-8.5>}, 1, 7, 2.2) Paint(C_RustD) }
    Eye(0, 1, 7.4, 2.7, C_Amber, C_Yellow)
    Jet(0, 13, 1, 2.2, -(2.4 + 1.4*S1), C_Amber, C_Yellow)
  }
#break
#case (4) // needle: long spindle, six fins that turn like a screw
  union {
    #for (Fi, 0, 5)
      #local A = radians(60*T + 60*Fi);
      #local X1 = 15.6*cos(A);
      #if (abs(X1) > 1.5)
      object { Plate(array[4]{<0,12>,<X1,15.4>,<X1,8.6>,<0,1>}, 0, 2, 0.7)
        Paint((mod(Fi, 2) ? C_Rust : C_RustD)) translate z*(7*sin(A)) }
      #end
    #end
    object { Ell(0, 1, 3, 4.6, 12, 4.6) Paint(C_Sand) }
    object { Ell(0, 10, 3.4, 5, 5.6, 5) Paint(C_Rust) }
    cylinder { <0,-2.4,3>, <0,-4.8,3>, 4.9 Paint(C_RustD) }
    cone { <0,-7,3>, 3.6, <0,-15.8,3>, 0.5 Metal(C_Gun) }
    Both(object { Gun(4.4, 1, -9, 3, 1.1) })
    object { Eye(0, 3, 7.4, 2.2, C_Amber, C_Yellow) }
  }
#break

// ------------------------------------------------------ fighters: violet
#case (5) // talon: three claws forward
  union {
    object { SymPlate(array[9]{<0,12>,<3,15.5>,<9,13>,<15.5,8>,<14.5,-4>,<11.5,-14.5>,<9.5,-3>,<5,1>,<0,-1>}, 0, 4, 2.2) Paint(C_Violet) }
    object { SymPlate(array[5]{<0,11>,<4,8>,<4.2,-2>,<2,-10>,<0,-15.5>}, 2, 7, 2) Paint(C_VioletD) }
    Both(object { Plate(array[4]{<10.5,7.5>,<13.5,6>,<13,-3>,<11.4,-8>}, 3, 5, 0.7) Paint(C_Bone) })
    Eye(0, 1, 7, 2.4, C_Magenta, C_White)
    Both(object { Jet(6, 12, 1, 2, -(3 + 1.6*S1), C_Magenta, C_White) })
    rotate y*(24*C1)
  }
#break
#case (6) // manta: broad wings that ripple
  union {
    Both(object { Plate(array[7]{<0,9>,<5,12>,<15.6,11 + 3.5*S1>,<14.5,5 + 3*S1>,<9,-3>,<4,-10>,<0,-11>}, 0, 3.5, 2) Paint(C_Violet) })
    Both(object { Plate(array[4]{<5,9>,<13.6,9.3 + 3*S1>,<12.6,6.6 + 3*S1>,<6,3>}, 2, 4.4, 0.7) Paint(C_VioletD) })
    Both(object { Plate(array[4]{<2,-9>,<5,-8>,<5.6,-15>,<3,-13>}, 1, 4, 0.8) Paint(C_Bone) })
    object { Ell(0, -1, 3, 4.6, 10, 4) Paint(C_VioletD) }
    cone { <0,7,3>, 2.2, <2*C1,15.6,2>, 0.7 Paint(C_Violet) }
    Both(object { Eye(2.4, -6, 6, 1.5, C_Magenta, C_White) })
    object { Ell(0, 2, 6.2, 1.4, 4, 1) Glow(C_Magenta, 0.55 + 0.4*P1) }
  }
#break
#case (7) // cross: an X of blades, spinning
  union {
    Around(object { union {
      object { Plate(array[6]{<2,-4.6>,<10,-5.4>,<16,-2.2>,<15.2,3.6>,<9,2.4>,<2,4.4>}, 0, 5, 2.2) Paint(C_Violet) }
      object { Plate(array[4]{<6.5,-2.6>,<12.8,-2.8>,<12.8,0.2>,<6.5,0.6>}, 4, 6, 0.6) Paint(C_Bone) }
      object { Ell(14.4, 1.4, 5, 1.7, 1.7, 1.5) Glow(C_Magenta, 0.95) }
    } }, 4)
    rotate z*(90*T + 45)
  }
  sphere { 0, 1 scale <6.6, 6.6, 5> translate z*3 Paint(C_VioletD) }
  object { Eye(0, 0, 8, 3.0, C_Magenta, C_White) }
#break
#case (8) // kite: diamond with opening side vanes
  union {
    Both(object { Plate(array[4]{<4,9>,<13.4,7>,<13.4,-1>,<4,-6>}, 0, 2.5, 1.2) Paint(C_Violet)
      translate <-2 + 2*P1, -3*P1, 0> })
    object { SymPlate(array[4]{<0,15.6>,<8.5,3>,<4,-8>,<0,-15.6>}, 0, 6, 3) Paint(C_Violet) }
    object { SymPlate(array[4]{<0,10>,<3.6,3>,<2,-6>,<0,-10>}, 5, 7, 1) Paint(C_Bone) }
    Eye(0, 2, 7.5, 2, C_Magenta, C_White)
    Both(object { union { cylinder { <0,6,0>, <0,-9,0>, 1.7 Paint(C_Bone) } cylinder { <0,-6,0>, <0,-10,0>, 2.1 Paint(C_VioletD) } } translate <11 + 2*P1, 1 - 3*P1, 3> })
    Both(object { Jet(11 + 2*P1, 7.6 - 3*P1, 2, 2, -(3.4 + 2*S1), C_Magenta, C_White) })
  }
#break
#case (9) // fang: two long prongs and a jaw that snaps
  union {
    Both(object { Plate(array[7]{<1,13>,<7,15.5>,<12,12>,<14.5,3>,<10,-15.5>,<7.5,-4>,<3,3>}, 0, 4.5, 2.3) Paint(C_Violet)
       rotate z*(6 - 11*P1) })
    Both(object { Plate(array[3]{<11.6,-1>,<9.6,-15>,<8.2,-4>}, 4, 5, 0.5) Metal(C_Bone) rotate z*(6 - 11*P1) })
    object { SymPlate(array[5]{<0,15.5>,<4.4,13>,<5.4,6>,<3,-1>,<0,-4>}, 3, 8, 2) Paint(C_VioletD) }
    Both(object { Eye(2, 3.4, 8, 1.5, C_Magenta, C_White) })
    Both(object { Jet(6.4, 14.4, 1, 2, -(2.6 + 1.6*S1), C_Magenta, C_White) })
  }
#break

// ------------------------------------------------------- mines: crimson
#case (10) // spike: a turning ball of thorns
  union {
    Around(object { cone { <6,0,0>, 3.4, <15.8,0,0>, 0.5 Metal(C_Bone) } }, 6)
    Around(object { union {
      cone { <3,0,4>, 2.4, <9.5,0,9>, 0.4 Metal(C_Bone) } rotate z*30 } }, 6)
    rotate z*(60*T)
  }
  sphere { 0, 9.6 Paint(C_Plum) }
  Around(object { sphere { <6.6,0,6>, 1.3 Glow(C_Red, 0.5 + 0.5*P1) rotate z*(60*T) } }, 6)
  Eye(0, 0, 9.4, 2.8, C_Red, C_Yellow)
#break
#case (11) // orb: shell halves that part over a glowing heart
  union {
    sphere { 0, 10 Glow(C_Red, 0.55 + 0.45*P1) }
    sphere { <0,0,7>, 4 + 1.5*P1 Glow(C_Yellow, 1) }
    Around(object { difference { sphere { 0, 14 } sphere { 0, 11.5 }
         plane { x, 0.8 } plane { y, 0.8 } cylinder { <0,0,-20>, <0,0,20>, 5.5 + P1 }
         translate <0.4 + 1.4*P1, 0.4 + 1.4*P1, 0> Paint(C_Plum) } }, 4)
    Around(object { sphere { <10.4 + P1, 10.4 + P1, 3>, 2.2 Metal(C_Gun) } }, 4)
    rotate z*(90*T)
  }
#break
#case (12) // star: a five pointed throwing star, spinning
  union {
    #local O = array[1]; StarGon(5, 16.6, 9, 90, O)
    object { Plate(O, 0, 5, 3) Paint(C_Plum) }
    StarGon(5, 10.5, 5, 54, O)
    object { Plate(O, 4, 7, 1.2) Paint(C_PlumD) }
    Around(object { Ell(11.6, 0, 5.2, 2.2, 0.9, 0.8) Glow(C_Red, 0.95) rotate z*18 }, 5)
    rotate z*(72*T)
  }
  Eye(0, 0, 7, 2.8, C_Red, C_Yellow)
#break

// -------------------------------------------- turrets: brass and gunmetal
#case (13) // dome: a hexagonal base, barrel sweeping
  #local O = array[1]; NGon(6, 15.8, 0, O)
  object { Plate(O, -2, 2, 2.2) Paint(C_Gun) }
  NGon(6, 11.6, 30, O)
  object { Plate(O, 1, 4, 1.6) Paint(C_Brass) }
  Around(object { Ell(13, 0, 2, 1.1, 1.1, 1) Glow(C_Red, 0.4 + 0.6*P1) }, 6)
  union {
    Both(object { Gun(2, -4, -15.6, 7, 1.4) })
    sphere { 0, 1 scale <6.4, 6.4, 6> translate z*5 Metal(C_Brass) }
    object { SymPlate(array[4]{<0,6>,<3.6,5>,<3,-6>,<0,-6.4>}, 9, 11.6, 1) Paint(C_GunD) }
    Eye(0, 0, 11.6, 1.9, C_Red, C_Yellow)
    rotate z*(28*S1)
  }
#break
#case (14) // gyre: a ring with three orbiting charges
  torus { 12.4, 2.6 rotate x*90 Paint(C_PlumD) }
  union {
    Around(object { sphere { <12.2,0,2>, 3.6 Paint(C_Plum) } }, 3)
    Around(object { sphere { <12.0,0.4,5>, 1.5 Glow(C_Red, 1) } }, 3)
    Around(object { Plate(array[4]{<4,-1.2>,<11,-1.6>,<11,1.6>,<4,1.2>}, 0, 3, 0.6) Metal(C_Gun) rotate z*60 }, 3)
    rotate z*(120*T)
  }
  sphere { 0, 1 scale <6.2, 6.2, 5> translate z*1 Paint(C_Plum) }
  Eye(0, 0, 6, 2.6, C_Red, C_Yellow)
#break

// --------------------------------------------------- small bomber: acid
#case (15) // rack: three hanging bombs, released one after another
  union {
    object { Plate(array[8]{<-15.6,13.4>,<-9,15.8>,<9,15.8>,<15.6,13.4>,<15.6,6>,<9,4>,<-9,4>,<-15.6,6>}, -1, 3, 1.8) Paint(C_AcidD) }
    #for (Bi, -1, 1)
      #local Lit = (Bi + 1 = F ? 1 : 0);
      union {
        cylinder { <0,6,4>, <0,-7,4>, 4.7 Paint(C_Acid) }
        sphere { 0, 1 scale <4.7, 7, 4.7> translate <0,-7,4> Glow((Lit ? C_Yellow : C_Red), (Lit ? 1 : 0.5)) }
        cylinder { <0,-5.4,4>, <0,-8.6,4>, 4.9 Paint(C_AcidD) }
        cylinder { <0,2.6,4>, <0,0.6,4>, 4.9 Paint(C_GunD) }
        object { SymPlate(array[4]{<0,12>,<4.6,13>,<4.4,7>,<0,4>}, 6, 9, 0.9) Paint(C_Acid) }
        translate <10.8*Bi, (Bi = 0 ? -1.6 : 1) - 1.4*Lit + 1, 0>
      }
    #end
    object { Eye(0, 10.6, 9, 2.4, C_Red, C_Yellow) }
  }
#break
#end
