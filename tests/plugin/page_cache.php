<?php
// A page cache (advanced-cache.php) that keeps every answer to a GET, whatever its headers and its status say, and asks
// only what the file "page_cache_obeys" names: the constant DONOTCACHEPAGE, or LiteSpeed's action.
$page_cache_folder = getenv( 'WORLD_DIR' ) . '/page_cache';
$page_cache_obeys  = file_get_contents( "$page_cache_folder/obeys" );
$page_cache_kept   = $page_cache_folder . '/' . sha1( $_SERVER['HTTP_HOST'] . $_SERVER['REQUEST_URI'] );
$page_cache_told   = false;

if ( 'GET' === $_SERVER['REQUEST_METHOD'] ) {
	if ( file_exists( $page_cache_kept ) ) {
		header( 'X-From-Cache: yes' );
		readfile( $page_cache_kept );
		exit;
	}
	add_action( 'litespeed_control_set_nocache', function () use ( &$page_cache_told ) {
		$page_cache_told = true;
	} );
	ob_start( function ( $page ) use ( $page_cache_kept, $page_cache_obeys, &$page_cache_told ) {
		$forbidden = 'constant' === $page_cache_obeys ? defined( 'DONOTCACHEPAGE' ) && DONOTCACHEPAGE : $page_cache_told;
		if ( ! $forbidden ) {
			file_put_contents( $page_cache_kept, $page );
		}
		return $page;
	} );
}
