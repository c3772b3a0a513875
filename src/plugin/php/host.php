<?php

/**
 * The host that the names belong to, in the ASCII form that wallets compare.
 *
 * @return string Lower case; empty when WordPress' home URL has none.
 */
function brasslet_host() {
	return brasslet_ascii_host( strtolower( brasslet_typed_host() ) );
}

/**
 * The site's home URL without a trailing slash, with its host in ASCII.
 *
 * @return string
 */
function brasslet_root() {
	$root = untrailingslashit( home_url() );
	$host = brasslet_typed_host();
	if ( 1 !== preg_match( '/[^\x00-\x7F]/u', $host ) ) {
		return $root;
	}
	return substr_replace( $root, brasslet_host(), strpos( $root, $host ), strlen( $host ) );
}

/**
 * The host of WordPress' home URL, as the owner of the site typed it.
 *
 * @return string Empty when the URL has none.
 */
function brasslet_typed_host() {
	return brasslet_string( wp_parse_url( home_url(), PHP_URL_HOST ) );
}

/**
 * Writes an international host name in ASCII (RFC 3492), with the encoder that WordPress sends its own requests by.
 *
 * @param string $host The host.
 * @return string The host as it was given when it is ASCII already or cannot be written so.
 */
function brasslet_ascii_host( $host ) {
	// Bytes that are no UTF-8 do not match either.
	if ( 1 !== preg_match( '/[^\x00-\x7F]/u', $host ) ) {
		return $host;
	}
	// Its name since WordPress 6.2, and before.
	foreach ( array( 'WpOrg\Requests\IdnaEncoder', 'Requests_IDNAEncoder' ) as $encoder ) {
		if ( class_exists( $encoder ) ) {
			try {
				$lower = function_exists( 'mb_strtolower' ) ? mb_strtolower( $host, 'UTF-8' ) : $host;
				return strtolower( $encoder::encode( $lower ) );
			} catch ( Exception $unusable ) {
				// A label that is too long.
				return $host;
			}
		}
	}
	return $host;
}

/**
 * The paymail of a published name.
 *
 * @param array $row The name's row.
 * @return string
 */
function brasslet_handle( $row ) {
	return $row['alias'] . '@' . brasslet_host();
}
