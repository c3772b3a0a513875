<?php
/*
 * Finds what PHP 7.4 would not run in the file named on the command line, one "LINE: WHAT" each.
 *
 * Needs PHP 8.1 or later itself: only a later tokenizer tells the newer words from plain names.
 */

const NEWER_TOKENS    = array(
	T_MATCH                    => 'match',
	T_ENUM                     => 'enum',
	T_READONLY                 => 'readonly',
	T_ATTRIBUTE                => 'attribute',
	T_NULLSAFE_OBJECT_OPERATOR => '?->',
);
const NEWER_FUNCTIONS = array(
	'array_is_list',
	'enum_exists',
	'fdiv',
	'fsync',
	'get_debug_type',
	'get_resource_id',
	'preg_last_error_msg',
	'str_contains',
	'str_ends_with',
	'str_starts_with',
);
// As a type, written after one of the texts of BEFORE_A_TYPE.
const NEWER_TYPES   = array( 'false', 'mixed', 'never', 'null', 'static', 'true' );
const BEFORE_A_TYPE = array( '(', ',', ':', '|', '?' );
const TYPE_TOKENS   = array( T_STRING, T_ARRAY, T_CALLABLE, T_STATIC );
const MODIFIERS     = array( T_PUBLIC, T_PROTECTED, T_PRIVATE );

$tokens = array_values(
	array_filter(
		PhpToken::tokenize( file_get_contents( $argv[1] ) ),
		function ( $token ) {
			return ! $token->isIgnorable();
		}
	)
);
$found  = array();

// For every open parenthesis: does it hold the parameters of a function?
$parentheses = array();

// From "function" to the body, so that the types around the parameters are seen.
$signature = false;

foreach ( $tokens as $i => $token ) {
	$text     = strtolower( $token->text );
	$previous = $tokens[ $i - 1 ]->text ?? '';
	$next     = $tokens[ $i + 1 ]->text ?? '';
	$what     = NEWER_TOKENS[ $token->id ] ?? '';
	if ( $token->is( array( T_FUNCTION, T_FN ) ) ) {
		$signature = true;
	} elseif ( $signature && $token->is( array( '{', ';', T_DOUBLE_ARROW ) ) ) {
		$signature = false;
	}
	if ( '(' === $text ) {
		$parentheses[] = $signature;
	} elseif ( ')' === $text ) {
		array_pop( $parentheses );
	}
	$in_parameters = (bool) end( $parentheses );

	if ( $token->is( T_STRING ) && ':' === $next && in_array( $previous, array( '(', ',' ), true ) ) {
		$what = 'named argument';
	} elseif ( $token->is( T_STRING ) && '(' === $next && in_array( $text, NEWER_FUNCTIONS, true ) ) {
		$what = $text . '()';
	} elseif ( $signature && in_array( $text, NEWER_TYPES, true ) && in_array( $previous, BEFORE_A_TYPE, true ) ) {
		$what = 'type ' . $text;
	} elseif ( $signature && in_array( $text, array( '|', '&' ), true ) && $tokens[ $i + 1 ]->is( TYPE_TOKENS ) ) {
		$what = 'union type';
	} elseif ( $in_parameters && $token->is( MODIFIERS ) ) {
		$what = 'promoted property';
	} elseif ( $in_parameters && ',' === $text && ')' === $next ) {
		$what = 'comma after the last parameter';
	} elseif ( $in_parameters && $token->is( T_NEW ) ) {
		$what = 'new as a default';
	} elseif ( $token->is( T_THROW ) && ! in_array( $previous, array( ';', '{', '}', ':', ')' ), true ) ) {
		$what = 'throw as an expression';
	} elseif ( $token->is( T_CATCH ) && ')' === ( $tokens[ $i + 3 ]->text ?? '' ) ) {
		$what = 'catch without a variable';
	} elseif ( $token->is( T_ELLIPSIS ) && '(' === $previous && ')' === $next ) {
		$what = 'first-class callable';
	} elseif ( $token->is( T_CLASS ) && '::' === $previous && $tokens[ $i - 2 ]->is( T_VARIABLE ) ) {
		$what = '::class of an object';
	} elseif ( $token->is( T_LNUMBER ) && 0 === strpos( $text, '0o' ) ) {
		$what = 'octal number with 0o';
	}
	if ( '' !== $what ) {
		$found[] = $token->line . ': ' . $what;
	}
}
foreach ( $found as $line ) {
	echo $line, "\n";
}
exit( $found ? 1 : 0 );
