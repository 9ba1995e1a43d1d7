! Prints the molecule of an input as XYZ, with its formula and charge for a comment:
!
!     molecule examples/water-easy.inp
!
! The interfaces are those of kelp/bdf.h that are needed here.

module kelp_bdf
  use, intrinsic :: iso_c_binding
  implicit none

  type, bind(c) :: kelp_bdf_string
    type(c_ptr) :: data
    integer(c_size_t) :: size
  end type

  type, bind(c) :: kelp_bdf_error
    integer(c_int32_t) :: status
    character(kind=c_char) :: text(508)
  end type

  type, bind(c) :: kelp_bdf_molecule_info
    integer(c_size_t) :: struct_size
    integer(c_size_t) :: atom_count
    type(c_ptr) :: coordinates
    integer(c_int32_t) :: unit
    integer(c_int32_t) :: has_charge
    integer(c_int32_t) :: has_multiplicity
    integer(c_int64_t) :: charge
    integer(c_int64_t) :: multiplicity
    type(kelp_bdf_string) :: formula
  end type

  interface
    integer(c_int32_t) function kelp_bdf_input_read(path, schema, input, error) bind(c)
      import
      character(kind=c_char), intent(in) :: path(*)
      type(c_ptr), value :: schema
      type(c_ptr), intent(out) :: input
      type(kelp_bdf_error), intent(out) :: error
    end function

    integer(c_int32_t) function kelp_bdf_input_free(input) bind(c)
      import
      type(c_ptr), value :: input
    end function

    integer(c_int32_t) function kelp_bdf_molecule_of(input, molecule, error) bind(c)
      import
      type(c_ptr), value :: input
      type(c_ptr), intent(out) :: molecule
      type(kelp_bdf_error), intent(out) :: error
    end function

    integer(c_int32_t) function kelp_bdf_molecule_get(molecule, info) bind(c)
      import
      type(c_ptr), value :: molecule
      type(kelp_bdf_molecule_info), intent(inout) :: info
    end function

    integer(c_int32_t) function kelp_bdf_molecule_element(molecule, index, symbol) bind(c)
      import
      type(c_ptr), value :: molecule
      integer(c_size_t), value :: index
      type(kelp_bdf_string), intent(out) :: symbol
    end function

    integer(c_int32_t) function kelp_bdf_molecule_free(molecule) bind(c)
      import
      type(c_ptr), value :: molecule
    end function
  end interface

contains

  function text_of(string) result(text)
    type(kelp_bdf_string), intent(in) :: string
    character(len=:), allocatable :: text
    character(kind=c_char), pointer :: bytes(:)
    integer :: i
    call c_f_pointer(string%data, bytes, [string%size])
    allocate (character(len=string%size) :: text)
    do i = 1, int(string%size)
      text(i:i) = bytes(i)
    end do
  end function

end module

program molecule
  use kelp_bdf
  implicit none
  type(c_ptr) :: input, handle
  type(kelp_bdf_error) :: error
  type(kelp_bdf_molecule_info) :: info
  type(kelp_bdf_string) :: symbol
  real(c_double), pointer :: coordinates(:, :)
  character(len=1024) :: file
  character(len=20) :: charge
  integer(c_int32_t) :: status
  integer(c_size_t) :: i

  call get_command_argument(1, file)
  if (kelp_bdf_input_read(trim(file)//c_null_char, c_null_ptr, input, error) /= 0) then
    print '(508a)', error%text
    error stop
  end if
  status = kelp_bdf_molecule_of(input, handle, error)
  info%struct_size = c_sizeof(info)
  status = kelp_bdf_molecule_get(handle, info)
  call c_f_pointer(info%coordinates, coordinates, [3_c_size_t, info%atom_count])

  print '(i0)', info%atom_count
  write (charge, '(i0)') info%charge
  print '(a)', text_of(info%formula)//', charge '//trim(charge)
  do i = 1, info%atom_count
    status = kelp_bdf_molecule_element(handle, i - 1, symbol)
    print '(a, 3f9.4)', text_of(symbol), coordinates(:, i)
  end do

  status = kelp_bdf_molecule_free(handle)
  status = kelp_bdf_input_free(input)
end program
